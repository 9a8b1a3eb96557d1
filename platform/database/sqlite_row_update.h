// A row of a table, found again by its key: saved with changes, or read anew. Internal to this
// folder.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/database/recordset.h"
#include "platform/database/sqlite_connection.h"

namespace platform::database {

// Values of the row-key columns of a table: where a row is.
using RowKey = std::vector<Value>;

// The named fields of a row and their new values, fit to be stored.
using FieldChange = std::pair<std::string, Value>;
using FieldChanges = std::vector<FieldChange>;

// Changes the row there, and `key` with it where a field of the row key is among the changes.
// A row that is no longer there is error 3021.
void UpdateRow(SqliteConnection& connection, const TableInfo& table, RowKey& key,
               const FieldChanges& changes);

// These columns of the row there, as they are stored now; nothing where it is gone.
[[nodiscard]] std::optional<Row> ReadRow(SqliteConnection& connection, const TableInfo& table,
                                         const RowKey& key,
                                         const std::vector<TableColumn>& columns);

}  // namespace platform::database
