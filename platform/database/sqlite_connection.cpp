#include "platform/database/sqlite_connection.h"

#include <algorithm>

#include "platform/error.h"
#include "platform/text.h"

namespace platform::database {
namespace {

constexpr std::size_t kMostStatementsKept = 64;

// The name of the row number that no column hides; empty where columns hide all of its names.
std::string RowNumberName(const std::vector<TableColumn>& columns) {
    for (const std::string_view name : {"rowid", "_rowid_", "oid"}) {
        const bool hidden = std::ranges::any_of(columns, [name](const TableColumn& column) {
            return EqualsIgnoreCase(column.name, name);
        });
        if (!hidden) return std::string(name);
    }
    return {};
}

}  // namespace

SqliteConnection::SqliteConnection(const std::filesystem::path& file, Mode mode,
                                   std::chrono::milliseconds busyTimeout)
    : handle_(file, mode, busyTimeout) {
    // Opening alone reads nothing: a file that is no database shows here.
    Run("SELECT count(*) FROM sqlite_master");
}

Statement& SqliteConnection::Kept(const std::string& sql) {
    const auto found = kept_.find(sql);
    if (found != kept_.end()) return found->second;
    if (kept_.size() >= kMostStatementsKept) kept_.clear();
    return kept_.emplace(sql, Statement(handle_, sql)).first->second;
}

void SqliteConnection::Run(const std::string& sql) {
    StatementUse statement(Kept(sql));
    while (statement->Step()) {
    }
}

std::shared_ptr<const TableInfo> SqliteConnection::FindTable(std::string_view table) {
    ForgetTablesOfOldSchema();
    const std::string key = Upper(table);
    const auto known = tables_.find(key);
    if (known != tables_.end()) return known->second;
    return tables_[key] = ReadTable(table);
}

std::shared_ptr<const TableInfo> SqliteConnection::RequireTable(std::string_view table) {
    std::shared_ptr<const TableInfo> info = FindTable(table);
    if (info) return info;
    throw RuntimeError(
        error_number::kNoSuchTable,
        "Database '" + handle_.FileName() + "': there is no table '" + std::string(table) + "'.");
}

void SqliteConnection::ForgetTablesOfOldSchema() {
    StatementUse version(Kept("PRAGMA schema_version"));
    version->Step();
    const std::int64_t now = *version->Column(0, FieldType::AsStored).AsWhole();
    if (now == schemaVersion_) return;
    tables_.clear();
    schemaVersion_ = now;
}

std::shared_ptr<const TableInfo> SqliteConnection::ReadTable(std::string_view table) {
    TableInfo info;
    bool hasRowNumber = true;
    {
        StatementUse list(
            Kept("SELECT name, wr FROM pragma_table_list WHERE schema = 'main' AND "
                 "type IN ('table', 'virtual') AND name = ? COLLATE NOCASE"));
        list->Bind(1, table);
        if (!list->Step()) return nullptr;
        info.name = *list->Column(0, FieldType::Text).AsText();
        hasRowNumber = list->Column(1, FieldType::AsStored) == Value(0);
    }

    StatementUse columns(Kept("SELECT name, type, pk FROM pragma_table_info(?) ORDER BY cid"));
    columns->Bind(1, info.name);
    std::vector<std::pair<std::int64_t, TableColumn>> keyColumns;
    bool wholeKey = false;  // the key is the row number itself
    while (columns->Step()) {
        const std::string declaration = *columns->Column(1, FieldType::Text).AsText();
        TableColumn column{*columns->Column(0, FieldType::Text).AsText(),
                           TypeOfDeclaration(declaration)};
        const std::int64_t keyPlace = *columns->Column(2, FieldType::Whole).AsWhole();
        if (keyPlace > 0) keyColumns.emplace_back(keyPlace, column);
        if (keyPlace > 0) wholeKey = EqualsIgnoreCase(declaration, "INTEGER");
        info.columns.push_back(std::move(column));
    }
    std::ranges::sort(keyColumns, {}, [](const auto& entry) { return entry.first; });
    for (const auto& [place, column] : keyColumns)
        info.primaryKey.push_back(column.name);

    if (!hasRowNumber || (wholeKey && info.primaryKey.size() == 1)) {
        info.rowKey = info.primaryKey;
    } else if (std::string name = RowNumberName(info.columns); !name.empty()) {
        info.rowKey = {std::move(name)};
    }
    return std::make_shared<const TableInfo>(std::move(info));
}

}  // namespace platform::database
