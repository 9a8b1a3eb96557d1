// One open database file: foreign codes turned into errors, the system's own SQL functions, and the
// statements and table descriptions that are kept for the next use.
// Internal to this folder. Knows no recordsets.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/database/sqlite_statement.h"

struct sqlite3;

namespace platform {

struct TableColumn {
    std::string name;
    FieldType type = FieldType::AsStored;
};

struct TableInfo {
    std::string name;  // as it was created
    std::vector<TableColumn> columns;
    std::vector<std::string> primaryKey;
    // The columns that find a row again and order the table: its row number under a name that no
    // column hides, or the primary key. Empty where the table has neither.
    std::vector<std::string> rowKey;
};

class SqliteConnection {
  public:
    enum class Mode { Existing, Create };

    SqliteConnection(const std::filesystem::path& file, Mode mode,
                     std::chrono::milliseconds busyTimeout);

    [[nodiscard]] sqlite3* Handle() const { return handle_.get(); }

    // Throws the error that a result code of this connection means, with the file, the library's
    // own words and, where given, the statement.
    void Check(int code, std::string_view sql = {}) const;

    // A statement kept for repeated use; it stays valid until the next call of Kept().
    [[nodiscard]] Statement& Kept(const std::string& sql);

    // Runs a statement to its end.
    void Run(const std::string& sql);

    // The rows that the last statement changed.
    [[nodiscard]] long Changes() const;

    [[nodiscard]] bool InTransaction() const;

    // The table of that name, in any case; null where there is none (a view is none).
    [[nodiscard]] std::shared_ptr<const TableInfo> FindTable(std::string_view table);

    // The same; a missing table is error 3078.
    [[nodiscard]] std::shared_ptr<const TableInfo> RequireTable(std::string_view table);

  private:
    struct Close {
        void operator()(sqlite3* handle) const noexcept;
    };

    [[nodiscard]] std::shared_ptr<const TableInfo> ReadTable(std::string_view table);
    void ForgetTablesOfOldSchema();

    std::string fileName_;
    std::unique_ptr<sqlite3, Close> handle_;
    std::unordered_map<std::string, Statement> kept_;
    std::unordered_map<std::string, std::shared_ptr<const TableInfo>> tables_;
    std::int64_t schemaVersion_ = -1;
};

}  // namespace platform
