#include "platform/database/sqlite_row_update.h"

#include "platform/database/sql_text.h"
#include "platform/error.h"
#include "platform/text.h"

namespace platform::database {
namespace {

// " WHERE ..." with a parameter for each column of the row key.
std::string WhereItIs(const TableInfo& table) {
    std::string sql;
    for (const std::string& column : table.rowKey)
        sql.append(sql.empty() ? " WHERE " : " AND ").append(QuotedName(column)).append(" = ?");
    return sql;
}

std::string ReadSql(const TableInfo& table, const std::vector<TableColumn>& columns) {
    std::string sql;
    for (const TableColumn& column : columns)
        sql.append(sql.empty() ? "SELECT " : ", ").append(QuotedName(column.name));
    return sql + " FROM " + QuotedName(table.name) + WhereItIs(table);
}

std::string UpdateSql(const TableInfo& table, const FieldChanges& changes) {
    std::string sql = "UPDATE " + QuotedName(table.name) + " SET ";
    const char* separator = "";
    for (const auto& [field, value] : changes) {
        sql.append(separator).append(QuotedName(field)).append(" = ?");
        separator = ", ";
    }
    return sql + WhereItIs(table);
}

void FollowKey(const TableInfo& table, RowKey& key, const FieldChanges& changes) {
    for (std::size_t i = 0; i < key.size(); ++i) {
        for (const auto& [field, value] : changes) {
            if (EqualsIgnoreCase(field, table.rowKey[i])) key[i] = value;
        }
    }
}

}  // namespace

void UpdateRow(SqliteConnection& connection, const TableInfo& table, RowKey& key,
               const FieldChanges& changes) {
    if (changes.empty()) return;
    {
        StatementUse update(connection.Kept(UpdateSql(table, changes)));
        int parameter = 0;
        for (const auto& [field, value] : changes)
            update->Bind(++parameter, value);
        for (const Value& value : key)
            update->Bind(++parameter, value);
        update->Step();
    }
    if (connection.Handle().Changes() == 0) {
        throw RuntimeError(error_number::kNoCurrentRecord,
                           "The record is no longer in the table '" + table.name + "'.");
    }
    FollowKey(table, key, changes);
}

std::optional<Row> ReadRow(SqliteConnection& connection, const TableInfo& table, const RowKey& key,
                           const std::vector<TableColumn>& columns) {
    StatementUse read(connection.Kept(ReadSql(table, columns)));
    read->BindAll(key);
    if (!read->Step()) return std::nullopt;
    Row row;
    row.reserve(columns.size());
    for (const TableColumn& column : columns)
        row.push_back(read->Column(static_cast<int>(row.size()), column.type));
    return row;
}

}  // namespace platform::database
