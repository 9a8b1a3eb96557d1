// The columns of sales and sales lines, which stand alike in the data-set files, the work database
// and the store database: the import copies by position. Knows no shop.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/database.h"
#include "platform/recordset_file/writer.h"

namespace demo {

[[nodiscard]] std::vector<platform::RecordsetColumn> SalesColumns();
[[nodiscard]] std::vector<platform::RecordsetColumn> SalesLinesColumns();

// Creates `Sales` and `SalesLines`, empty.
void CreateSalesTables(platform::Database& database);

[[nodiscard]] inline platform::Value Kroner(std::int64_t ore) {
    return static_cast<double>(ore) / 100.0;
}

// Adds one row, a value for each column in the table's order.
void AddRow(platform::TableAppender& table, std::span<const platform::Value> values);

}  // namespace demo
