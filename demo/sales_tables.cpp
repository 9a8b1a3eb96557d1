#include "demo/sales_tables.h"

namespace demo {

namespace {

using platform::ColumnType;
using platform::RecordsetColumn;

std::string_view SqlType(ColumnType type) {
    switch (type) {
        case ColumnType::SmallInt:
            return "SMALLINT";
        case ColumnType::Integer:
            return "INTEGER";
        case ColumnType::Date:
            return "DATETIME";
        case ColumnType::Text:
            return "TEXT COLLATE NOCASE";
        default:
            return "DOUBLE";
    }
}

void CreateTable(platform::Database& database, std::string_view table,
                 const std::vector<RecordsetColumn>& columns) {
    std::string sql = "CREATE TABLE " + std::string(table) + " (";
    std::string_view separator;
    for (const RecordsetColumn& column : columns) {
        sql.append(separator).append(column.name).append(" ").append(SqlType(column.type));
        separator = ", ";
    }
    database.Execute(sql + ")");
}

}  // namespace

std::vector<RecordsetColumn> SalesColumns() {
    return {
        {"ID", ColumnType::Integer},
        {"SalesType", ColumnType::SmallInt},
        {"SalesStatus", ColumnType::SmallInt},
        {"SalesDate", ColumnType::Integer},
        {"DayEndDate", ColumnType::Date},
        {"CustomerID", ColumnType::Text, 20},
        {"CustomerName", ColumnType::Text, 50},
        {"Project", ColumnType::Text, 20},
        {"OurRef", ColumnType::Text, 50},
        {"YourRef", ColumnType::Text, 50},
        {"SelBuy", ColumnType::Integer},
    };
}

std::vector<RecordsetColumn> SalesLinesColumns() {
    return {
        {"SalesID", ColumnType::Integer},      {"LineNo", ColumnType::Integer},
        {"SalesDate", ColumnType::Integer},    {"TransType", ColumnType::SmallInt},
        {"ProductID", ColumnType::Text, 30},   {"Description", ColumnType::Text, 60},
        {"Qty", ColumnType::Double},           {"Price", ColumnType::Double},
        {"Discount", ColumnType::Double},      {"CostPrice", ColumnType::Double},
        {"Amount", ColumnType::Double},        {"VatCode", ColumnType::SmallInt},
        {"SalesAccount", ColumnType::Integer}, {"String1", ColumnType::Text, 50},
    };
}

void CreateSalesTables(platform::Database& database) {
    CreateTable(database, "Sales", SalesColumns());
    CreateTable(database, "SalesLines", SalesLinesColumns());
}

void AddRow(platform::TableAppender& table, std::span<const platform::Value> values) {
    int position = 0;
    for (const platform::Value& value : values)
        table.Set(position++, value);
    table.Save();
}

}  // namespace demo
