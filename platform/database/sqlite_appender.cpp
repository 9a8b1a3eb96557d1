#include "platform/database/sqlite_appender.h"

#include "platform/database/sql_text.h"
#include "platform/error.h"

namespace platform::database {
namespace {

std::string InsertSql(const TableInfo& table) {
    std::string columns;
    std::string parameters;
    for (const TableColumn& column : table.columns) {
        columns.append(columns.empty() ? "" : ", ").append(QuotedName(column.name));
        parameters.append(parameters.empty() ? "?" : ", ?");
    }
    return "INSERT INTO " + QuotedName(table.name) + " (" + columns + ") VALUES (" + parameters +
           ")";
}

}  // namespace

SqliteAppender::SqliteAppender(std::shared_ptr<SqliteConnection> connection, std::string_view table)
    : connection_(std::move(connection)),
      table_(connection_->RequireTable(table)),
      insert_(connection_->Handle(), InsertSql(*table_)),
      texts_(table_->columns.size()) {}

int SqliteAppender::FieldCount() const {
    return static_cast<int>(table_->columns.size());
}

const std::string& SqliteAppender::FieldName(int position) const {
    return table_->columns.at(static_cast<std::size_t>(position)).name;
}

void SqliteAppender::Set(int position, const Value& value) {
    const auto place = static_cast<std::size_t>(position);
    const TableColumn& column = table_->columns.at(place);
    if (const auto* text = value.AsText(); text != nullptr && column.type == FieldType::Text) {
        texts_[place].assign(*text);
        insert_.BindInPlace(position + 1, texts_[place]);
        return;
    }
    if (HasType(value, column.type)) {
        insert_.Bind(position + 1, value);
        return;
    }
    insert_.Bind(position + 1, FittedOrError(value, column.type,
                                             "Table " + table_->name + ", column " + column.name));
}

bool SqliteAppender::KeepsNumber(int position, const Value& value) const {
    return database::KeepsNumber(value,
                                 table_->columns.at(static_cast<std::size_t>(position)).type);
}

void SqliteAppender::Save() {
    const StatementUse ending(insert_);
    insert_.Step();
}

}  // namespace platform::database
