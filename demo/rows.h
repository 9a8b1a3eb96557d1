// Rows of the demo's databases: amounts as the tables hold them, and a row at a time. Knows no
// table.
#pragma once

#include <cstdint>
#include <span>

#include "platform/database/database.h"

namespace demo {

[[nodiscard]] inline platform::Value Kroner(std::int64_t ore) {
    return static_cast<double>(ore) / 100.0;
}

// Adds one row, a value for each column in the table's order.
void AddRow(platform::database::TableAppender& table, std::span<const platform::Value> values);

}  // namespace demo
