// One open database file with the statements and table descriptions that are kept for the next use.
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

#include "platform/database/sqlite_handle.h"
#include "platform/database/sqlite_statement.h"

namespace platform::database {

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
    using Mode = SqliteHandle::Mode;

    SqliteConnection(const std::filesystem::path& file, Mode mode,
                     std::chrono::milliseconds busyTimeout);

    [[nodiscard]] const SqliteHandle& Handle() const { return handle_; }

    // A statement kept for repeated use; it stays valid until the next call of Kept().
    [[nodiscard]] Statement& Kept(const std::string& sql);

    void Run(const std::string& sql);

    // The table of that name, in any case; null where there is none (a view is none).
    [[nodiscard]] std::shared_ptr<const TableInfo> FindTable(std::string_view table);

    // The same; a missing table is error 3078.
    [[nodiscard]] std::shared_ptr<const TableInfo> RequireTable(std::string_view table);

  private:
    [[nodiscard]] std::shared_ptr<const TableInfo> ReadTable(std::string_view table);
    void ForgetTablesOfOldSchema();

    SqliteHandle handle_;
    std::unordered_map<std::string, Statement> kept_;
    std::unordered_map<std::string, std::shared_ptr<const TableInfo>> tables_;
    std::int64_t schemaVersion_ = -1;
};

}  // namespace platform::database
