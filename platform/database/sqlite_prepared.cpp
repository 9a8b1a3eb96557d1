#include "platform/database/sqlite_prepared.h"

#include <utility>

namespace platform::database {

SqlitePrepared::SqlitePrepared(std::shared_ptr<SqliteConnection> connection, std::string_view sql)
    : connection_(std::move(connection)), statement_(connection_->Handle(), sql) {}

std::vector<Row> SqlitePrepared::Run(std::span<const Value> values) {
    const StatementUse ending(statement_);
    int parameter = 0;
    for (const Value& value : values) {
        if (const auto* text = value.AsText()) {
            statement_.BindInPlace(++parameter, *text);
        } else {
            statement_.Bind(++parameter, value);
        }
    }

    std::vector<Row> rows;
    while (statement_.Step()) {
        ReadColumnTypes();
        Row& row = rows.emplace_back();
        row.reserve(types_.size());
        for (const FieldType type : types_) {
            row.push_back(statement_.Column(static_cast<int>(row.size()), type));
        }
    }
    return rows;
}

// Once: the declared types cost more to read than the values. A changed table shows in its columns.
void SqlitePrepared::ReadColumnTypes() {
    const auto count = static_cast<std::size_t>(statement_.ColumnCount());
    if (types_.size() == count) return;
    types_.clear();
    for (int column = 0; column < static_cast<int>(count); ++column) {
        types_.push_back(statement_.ColumnType(column));
    }
}

}  // namespace platform::database
