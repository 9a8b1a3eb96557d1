#include "platform/database/sqlite_connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

#include "platform/database/sqlite_functions.h"
#include "platform/error.h"
#include "platform/text.h"

namespace platform {
namespace {

constexpr std::size_t kMostStatementsKept = 64;
constexpr std::string_view kNoSuchTable = "no such table";

int ConstraintError(int extendedCode) {
    switch (extendedCode) {
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            return error_number::kDuplicateKey;
        case SQLITE_CONSTRAINT_NOTNULL:
            return error_number::kFieldRequired;
        default:
            return error_number::kDataTypeConversion;
    }
}

int ErrorOfCode(int extendedCode, std::string_view message) {
    switch (extendedCode & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PROTOCOL:
            return error_number::kDatabaseInUse;
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return error_number::kCannotOpenDatabase;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            return error_number::kUnrecognizedDatabase;
        case SQLITE_FULL:
            return error_number::kDiskFull;
        case SQLITE_READONLY:
            return error_number::kReadOnly;
        case SQLITE_IOERR:
            return error_number::kDeviceIo;
        case SQLITE_CONSTRAINT:
            return ConstraintError(extendedCode);
        case SQLITE_MISMATCH:
        case SQLITE_TOOBIG:
            return error_number::kDataTypeConversion;
        default:
            break;
    }
    if (message.starts_with(kNoSuchTable)) return error_number::kNoSuchTable;
    if (message == kSumOverflowMessage) return error_number::kOverflow;
    return error_number::kSyntaxError;
}

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

void SqliteConnection::Close::operator()(sqlite3* handle) const noexcept {
    sqlite3_close(handle);
}

SqliteConnection::SqliteConnection(const std::filesystem::path& file, Mode mode,
                                   std::chrono::milliseconds busyTimeout)
    : fileName_(file.string()) {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                      (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0);
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(fileName_.c_str(), &opened, flags, nullptr);
    handle_.reset(opened);
    Check(code);
    sqlite3_busy_timeout(opened, static_cast<int>(busyTimeout.count()));
    Check(RegisterFunctions(opened));
    // Opening alone reads nothing: a file that is no database shows here.
    Run("SELECT count(*) FROM sqlite_master");
}

void SqliteConnection::Check(int code, std::string_view sql) const {
    if (code == SQLITE_OK) return;
    const bool known = handle_ != nullptr && sqlite3_extended_errcode(handle_.get()) == code;
    const std::string message = known ? sqlite3_errmsg(handle_.get()) : sqlite3_errstr(code);
    std::string description = "Database '" + fileName_ + "': " + message + ".";
    if (!sql.empty()) description.append(" SQL: ").append(sql);
    throw RuntimeError(ErrorOfCode(code, message), std::move(description));
}

Statement& SqliteConnection::Kept(const std::string& sql) {
    const auto found = kept_.find(sql);
    if (found != kept_.end()) return found->second;
    if (kept_.size() >= kMostStatementsKept) kept_.clear();
    return kept_.emplace(sql, Statement(*this, sql)).first->second;
}

void SqliteConnection::Run(const std::string& sql) {
    StatementUse statement(Kept(sql));
    while (statement->Step()) {
    }
}

long SqliteConnection::Changes() const {
    return sqlite3_changes(handle_.get());
}

bool SqliteConnection::InTransaction() const {
    return sqlite3_get_autocommit(handle_.get()) == 0;
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
        "Database '" + fileName_ + "': there is no table '" + std::string(table) + "'.");
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

}  // namespace platform
