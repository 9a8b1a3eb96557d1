// Saving a changed row in its table. Internal to this folder.
#pragma once

#include <string>
#include <utility>
#include <vector>

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

}  // namespace platform::database
