// The library's own handle on an open database file, and its codes turned into errors.
// Internal to this folder. Knows no statements.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;

namespace platform::database {

class SqliteHandle {
  public:
    // A file that is opened for reading keeps every byte, and its folder gets no file beside it.
    enum class Mode { Existing, Create, Reading };

    SqliteHandle(const std::filesystem::path& file, Mode mode,
                 std::chrono::milliseconds busyTimeout);

    [[nodiscard]] sqlite3* Get() const { return handle_.get(); }
    [[nodiscard]] const std::string& FileName() const { return fileName_; }

    // Throws the error that a result code of this handle means, with the file, the library's own
    // words and, where given, the statement.
    void Check(int code, std::string_view sql = {}) const;

    [[nodiscard]] long Changes() const;  // rows, by the last statement
    [[nodiscard]] bool InTransaction() const;

  private:
    struct Close {
        void operator()(sqlite3* handle) const noexcept;
    };

    std::string fileName_;
    std::unique_ptr<sqlite3, Close> handle_;
};

}  // namespace platform::database
