#include "platform/database/sqlite_statement.h"

#include <sqlite3.h>

#include "platform/database/statement_text.h"
#include "platform/date_text.h"
#include "platform/error.h"

namespace platform::database {
namespace {

// The text of a column; a blob counts as the text of its bytes.
std::string_view StoredText(sqlite3_stmt* statement, int column) {
    const void* bytes = sqlite3_column_blob(statement, column);
    if (bytes == nullptr) return {};
    return {static_cast<const char*>(bytes),
            static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

Value WholeColumn(sqlite3_stmt* statement, int column, FieldType type) {
    const std::int64_t number = sqlite3_column_int64(statement, column);
    if (type == FieldType::Boolean) return number != 0;
    if (type == FieldType::Floating) return static_cast<double>(number);
    return number;
}

Value FloatingColumn(sqlite3_stmt* statement, int column, FieldType type) {
    const double number = sqlite3_column_double(statement, column);
    if (type == FieldType::Boolean) return number != 0;
    return number;
}

Value TextColumn(sqlite3_stmt* statement, int column, FieldType type) {
    const std::string_view text = StoredText(statement, column);
    if (type == FieldType::Date) {
        if (const auto moment = ParseIsoDate(text)) return *moment;
    }
    return text;
}

}  // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
    sqlite3_finalize(statement);
}

Statement::Statement(const SqliteHandle& handle, std::string_view sql) : handle_(&handle) {
    sqlite3_stmt* prepared = nullptr;
    const char* rest = nullptr;
    const int code = sqlite3_prepare_v2(handle.Get(), sql.data(), static_cast<int>(sql.size()),
                                        &prepared, &rest);
    statement_.reset(prepared);
    handle.Check(code, sql);
    const auto left = static_cast<std::size_t>(sql.data() + sql.size() - rest);
    if (!statement_ || sql.substr(sql.size() - left).find_first_not_of(" \t\r\n") != sql.npos) {
        throw RuntimeError(error_number::kSyntaxError,
                           "One SQL statement expected." + std::string(kStatementMark).append(sql));
    }
}

void Statement::Bind(int parameter, const Value& value) {
    sqlite3_stmt* statement = statement_.get();
    int code = SQLITE_OK;
    if (const auto* text = value.AsText()) {
        code = sqlite3_bind_text64(statement, parameter, text->data(), text->size(),
                                   SQLITE_TRANSIENT, SQLITE_UTF8);
    } else if (const auto* whole = value.AsWhole()) {
        code = sqlite3_bind_int64(statement, parameter, *whole);
    } else if (const auto* floating = value.AsFloating()) {
        code = sqlite3_bind_double(statement, parameter, *floating);
    } else if (const auto* truth = value.AsBoolean()) {
        code = sqlite3_bind_int(statement, parameter, *truth ? 1 : 0);
    } else if (const auto* moment = value.AsDate()) {
        const std::string stored = IsoDateTime(*moment);
        code = sqlite3_bind_text64(statement, parameter, stored.data(), stored.size(),
                                   SQLITE_TRANSIENT, SQLITE_UTF8);
    } else {
        code = sqlite3_bind_null(statement, parameter);
    }
    handle_->Check(code);
}

void Statement::BindAll(std::span<const Value> values) {
    int parameter = 0;
    for (const Value& value : values)
        Bind(++parameter, value);
}

void Statement::BindInPlace(int parameter, std::string_view text) {
    handle_->Check(sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(),
                                       SQLITE_STATIC, SQLITE_UTF8));
}

bool Statement::Step() {
    const int code = sqlite3_step(statement_.get());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) handle_->Check(code);
    return false;
}

void Statement::Reset() noexcept {
    // The code repeats the failure of the last step, which was reported there.
    sqlite3_reset(statement_.get());
    sqlite3_clear_bindings(statement_.get());
}

int Statement::ColumnCount() const {
    return sqlite3_column_count(statement_.get());
}

std::string Statement::ColumnName(int column) const {
    const char* name = sqlite3_column_name(statement_.get(), column);
    return name == nullptr ? std::string() : std::string(name);
}

FieldType Statement::ColumnType(int column) const {
    const char* declaration = sqlite3_column_decltype(statement_.get(), column);
    return TypeOfDeclaration(declaration == nullptr ? std::string_view() : declaration);
}

Value Statement::Column(int column, FieldType type) const {
    sqlite3_stmt* statement = statement_.get();
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            return WholeColumn(statement, column, type);
        case SQLITE_FLOAT:
            return FloatingColumn(statement, column, type);
        case SQLITE_NULL:
            return {};
        default:
            return TextColumn(statement, column, type);
    }
}

}  // namespace platform::database
