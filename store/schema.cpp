#include "store/schema.h"

#include <string>
#include <string_view>

namespace store {

namespace {

using platform::recordset_file::ColumnType;
using platform::recordset_file::RecordsetColumn;

constexpr std::string_view kTables[] = {
    R"(CREATE TABLE Options (
        NextVoucherNo INTEGER, DeptNo INTEGER, CreditToOrder BOOLEAN, GrossPrices BOOLEAN,
        StockNo INTEGER, SalesAccount INTEGER, DefaultVATCode INTEGER, Long1 INTEGER,
        CashAccount INTEGER, BankAccount INTEGER, IOUAccount INTEGER, IOUName TEXT,
        Card1Account INTEGER, Card2Account INTEGER, Card3Account INTEGER, Card4Account INTEGER,
        Card5Account INTEGER, Card6Account INTEGER, Card7Account INTEGER, Card1Name TEXT,
        Card2Name TEXT, Card3Name TEXT, Card4Name TEXT, Card5Name TEXT, Card6Name TEXT,
        Card7Name TEXT, DefaultCustomerID TEXT, SAPSalesPriceList INTEGER,
        SAPCostPriceList INTEGER))",

    R"(CREATE TABLE Customers (
        ID TEXT COLLATE NOCASE PRIMARY KEY, Name TEXT, Address1 TEXT, Address2 TEXT,
        Address3 TEXT, Address4 TEXT, PostalCode TEXT, PostalAddress TEXT, Phone TEXT, Fax TEXT,
        CustPrGr INTEGER, CustPrG2 INTEGER, EMail TEXT, Discount DOUBLE, Status SMALLINT))",

    R"(CREATE TABLE Products (
        ID TEXT COLLATE NOCASE PRIMARY KEY, BarCode TEXT, Description TEXT, ProdPrGr INTEGER,
        ProdPrG2 INTEGER, Price DOUBLE, CostPrice DOUBLE, Status SMALLINT))",

    R"(CREATE TABLE PriceMatrix (
        ProdNo TEXT COLLATE NOCASE, SalePr DOUBLE, CstPr DOUBLE, Status SMALLINT))",

    R"(CREATE TABLE SelBuy (ID INTEGER PRIMARY KEY, Name TEXT))",

    R"(CREATE TABLE Tax (VatCode INTEGER PRIMARY KEY, Rate DOUBLE))",
};

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

void CreateTable(platform::database::Database& database, std::string_view table,
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

void CreateSalesTables(platform::database::Database& database) {
    CreateTable(database, "Sales", SalesColumns());
    CreateTable(database, "SalesLines", SalesLinesColumns());
}

void CreateStoreTables(platform::database::Database& database) {
    for (const std::string_view sql : kTables)
        database.Execute(sql);
    CreateSalesTables(database);
}

}  // namespace store
