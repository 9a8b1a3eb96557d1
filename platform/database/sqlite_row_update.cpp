#include "platform/database/sqlite_row_update.h"

#include "platform/database/sql_text.h"
#include "platform/error.h"
#include "platform/text.h"

namespace platform::database {
namespace {

std::string UpdateSql(const TableInfo& table, const FieldChanges& changes) {
    std::string sql = "UPDATE " + QuotedName(table.name) + " SET ";
    const char* separator = "";
    for (const auto& [field, value] : changes) {
        sql.append(separator).append(QuotedName(field)).append(" = ?");
        separator = ", ";
    }
    separator = " WHERE ";
    for (const std::string& column : table.rowKey) {
        sql.append(separator).append(QuotedName(column)).append(" = ?");
        separator = " AND ";
    }
    return sql;
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

}  // namespace platform::database
