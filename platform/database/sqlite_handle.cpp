#include "platform/database/sqlite_handle.h"

#include <sqlite3.h>

#include "platform/database/sqlite_functions.h"
#include "platform/database/statement_text.h"
#include "platform/error.h"

namespace platform::database {
namespace {

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

}  // namespace

void SqliteHandle::Close::operator()(sqlite3* handle) const noexcept {
    sqlite3_close(handle);
}

SqliteHandle::SqliteHandle(const std::filesystem::path& file, Mode mode,
                           std::chrono::milliseconds busyTimeout)
    : fileName_(file.string()) {
    const int access = mode == Mode::Reading  ? SQLITE_OPEN_READONLY
                       : mode == Mode::Create ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE
                                              : SQLITE_OPEN_READWRITE;
    const int flags = access | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(fileName_.c_str(), &opened, flags, nullptr);
    handle_.reset(opened);
    Check(code);
    sqlite3_busy_timeout(opened, static_cast<int>(busyTimeout.count()));
    Check(RegisterFunctions(opened));
}

void SqliteHandle::Check(int code, std::string_view sql) const {
    if (code == SQLITE_OK) return;
    const bool known = handle_ != nullptr && sqlite3_extended_errcode(handle_.get()) == code;
    const std::string message = known ? sqlite3_errmsg(handle_.get()) : sqlite3_errstr(code);
    std::string description = "Database '" + fileName_ + "': " + message + ".";
    if (!sql.empty()) description.append(kStatementMark).append(sql);
    throw RuntimeError(ErrorOfCode(code, message), std::move(description));
}

long SqliteHandle::Changes() const {
    return sqlite3_changes(handle_.get());
}

bool SqliteHandle::InTransaction() const {
    return sqlite3_get_autocommit(handle_.get()) == 0;
}

}  // namespace platform::database
