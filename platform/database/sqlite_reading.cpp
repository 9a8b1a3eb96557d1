#include "platform/database/sqlite_reading.h"

#include <array>
#include <cstddef>
#include <fstream>
#include <string>
#include <utility>

#include "platform/database/sqlite_database.h"
#include "platform/error.h"
#include "platform/temp_folder.h"

namespace platform::database {
namespace {

namespace fs = std::filesystem;

// The database file with what the engine keeps beside it.
class DatabaseCopy {
  public:
    explicit DatabaseCopy(const fs::path& file) {
        for (const char* suffix : {"", "-journal", "-wal"}) {
            const fs::path source = file.string() + suffix;
            std::error_code failure;
            if (!fs::exists(source, failure)) continue;
            fs::copy_file(source, File().string() + suffix, failure);
            if (failure) throw ErrorFromErrno(failure.value(), "copy", source.string());
        }
    }

    [[nodiscard]] fs::path File() const { return folder_.Path() / "database"; }

  private:
    TempFolder folder_;
};

// Holds the copy for as long as it is read.
class CopiedDatabase : public SqliteDatabase {
  public:
    CopiedDatabase(std::shared_ptr<SqliteConnection> connection, std::unique_ptr<DatabaseCopy> copy)
        : SqliteDatabase(std::move(connection)), copy_(std::move(copy)) {}

  private:
    std::unique_ptr<DatabaseCopy> copy_;
};

std::unique_ptr<Database> OpenCopy(const fs::path& file, std::chrono::milliseconds busyTimeout) {
    auto copy = std::make_unique<DatabaseCopy>(file);
    auto connection = std::make_shared<SqliteConnection>(
        copy->File(), SqliteConnection::Mode::Existing, busyTimeout);
    return std::make_unique<CopiedDatabase>(std::move(connection), std::move(copy));
}

// Readers of a write-ahead log write beside the database too.
bool KeepsWriteAheadLog(const fs::path& file) {
    constexpr std::size_t kReadVersion = 19;  // the place in the file's header
    std::array<char, kReadVersion + 1> header{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(header.data(), header.size());
    return stream && header[kReadVersion] == 2;
}

}  // namespace

std::unique_ptr<Database> OpenForReading(const fs::path& file,
                                         std::chrono::milliseconds busyTimeout) {
    if (KeepsWriteAheadLog(file)) return OpenCopy(file, busyTimeout);
    try {
        return std::make_unique<SqliteDatabase>(
            std::make_shared<SqliteConnection>(file, SqliteConnection::Mode::Reading, busyTimeout));
    } catch (const RuntimeError& error) {
        // A journal that was left behind is to be rolled back first.
        const bool isUnfinished = error.Number() == error_number::kReadOnly ||
                                  error.Number() == error_number::kCannotOpenDatabase;
        std::error_code ignored;
        if (!isUnfinished || !fs::exists(file.string() + "-journal", ignored)) throw;
        return OpenCopy(file, busyTimeout);
    }
}

}  // namespace platform::database
