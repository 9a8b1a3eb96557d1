#include "demo/rows.h"

namespace demo {

void AddRow(platform::database::TableAppender& table, std::span<const platform::Value> values) {
    int position = 0;
    for (const platform::Value& value : values)
        table.Set(position++, value);
    table.Save();
}

}  // namespace demo
