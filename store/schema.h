// The tables of the store database and of the work database, made empty. The columns of sales and
// sales lines stand alike in the data-set files and in both databases: the import copies by
// position. Knows no shop.
#pragma once

#include <vector>

#include "platform/database/database.h"
#include "platform/recordset_file/recordset_column.h"

namespace store {

[[nodiscard]] std::vector<platform::recordset_file::RecordsetColumn> SalesColumns();
[[nodiscard]] std::vector<platform::recordset_file::RecordsetColumn> SalesLinesColumns();

// `Sales` and `SalesLines`: all that the work database holds.
void CreateSalesTables(platform::database::Database& database);

void CreateStoreTables(platform::database::Database& database);

}  // namespace store
