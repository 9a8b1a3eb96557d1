// Statements over a table of columns, with a parameter for each column. Table and column names are
// the program's own; values never come here.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace localcompany {

[[nodiscard]] inline std::string ColumnList(std::span<const std::string_view> columns) {
    std::string list;
    for (const std::string_view column : columns) {
        list.append(list.empty() ? "" : ", ").append(column);
    }
    return list;
}

[[nodiscard]] inline std::string InsertSql(std::string_view table,
                                           std::span<const std::string_view> columns) {
    std::string parameters;
    for (std::size_t i = 0; i < columns.size(); ++i)
        parameters += i == 0 ? "?" : ", ?";
    return std::string("INSERT INTO ").append(table) + " (" + ColumnList(columns) + ") VALUES (" +
           parameters + ")";
}

[[nodiscard]] inline std::string SelectSql(std::string_view table,
                                           std::span<const std::string_view> columns,
                                           std::string_view key) {
    return "SELECT " + ColumnList(columns) + " FROM " + std::string(table) + " WHERE " +
           std::string(key) + " = ?";
}

}  // namespace localcompany
