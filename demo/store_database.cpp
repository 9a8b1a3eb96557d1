#include "demo/store_database.h"

#include <memory>
#include <string_view>
#include <vector>

#include "demo/sales_tables.h"
#include "platform/database/sqlite_engine.h"

namespace demo {

namespace {

using platform::Value;

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

Value StatusValue(MasterStatus status) {
    return static_cast<int>(status);
}

void AddOptions(platform::Database& database, const Shop& shop) {
    constexpr int kDeptNo = 1;
    constexpr int kStockNo = 1;
    std::vector<Value> row = {shop.nextVoucherNo,
                              kDeptNo,
                              false,  // credit sales are posted here, not by an order system
                              true,   // prices with VAT
                              kStockNo,
                              account::kSales,
                              kVatClasses[0].code,
                              account::kRounding,
                              account::kCash,
                              account::kBank,
                              account::kIou,
                              kIouName};
    for (int card = 0; card < static_cast<int>(kCardNames.size()); ++card) {
        row.emplace_back(account::kFirstCard + card);
    }
    for (const std::string_view name : kCardNames)
        row.emplace_back(name);
    row.emplace_back(shop.customers.front().id);
    constexpr int kSalesPriceList = 1;
    constexpr int kCostPriceList = 2;
    row.emplace_back(kSalesPriceList);
    row.emplace_back(kCostPriceList);
    AddRow(*database.OpenAppender("Options"), row);
}

void AddCustomers(platform::Database& database, const Shop& shop) {
    const auto table = database.OpenAppender("Customers");
    for (const Customer& customer : shop.customers) {
        const Value row[] = {customer.id,
                             customer.name,
                             customer.address,
                             customer.addressLine2,
                             Value(),
                             Value(),
                             customer.place.postalCode,
                             customer.place.name,
                             customer.phone,
                             Value(),
                             customer.priceGroup,
                             Value(),
                             customer.email,
                             customer.discount,
                             StatusValue(customer.status)};
        AddRow(*table, row);
    }
}

void AddProducts(platform::Database& database, const Shop& shop) {
    const auto products = database.OpenAppender("Products");
    for (const Product& product : shop.products) {
        const auto group = static_cast<int>(product.vatClass) + 1;
        const Value row[] = {product.id,
                             product.barCode,
                             product.description,
                             group,
                             product.isService ? Value(1) : Value(),
                             Kroner(product.price),
                             Kroner(product.costPrice),
                             StatusValue(product.status)};
        AddRow(*products, row);
    }
    const auto prices = database.OpenAppender("PriceMatrix");
    for (const Product& product : shop.products) {
        const Value row[] = {product.id, Kroner(product.price), Kroner(product.costPrice),
                             StatusValue(product.status)};
        AddRow(*prices, row);
    }
}

void AddSellersAndTax(platform::Database& database, const Shop& shop) {
    const auto sellers = database.OpenAppender("SelBuy");
    int number = 0;
    for (const std::string& name : shop.sellers) {
        const Value row[] = {++number, name};
        AddRow(*sellers, row);
    }
    const auto tax = database.OpenAppender("Tax");
    for (const VatClass& vat : kVatClasses) {
        const Value row[] = {vat.code, static_cast<double>(vat.rate)};
        AddRow(*tax, row);
    }
}

}  // namespace

void CreateStoreTables(platform::Database& database) {
    for (const std::string_view sql : kTables)
        database.Execute(sql);
    CreateSalesTables(database);
}

void WriteStoreDatabase(const std::filesystem::path& file, const Shop& shop) {
    const auto database = platform::SqliteEngine().CreateDatabase(file.string());
    const auto transaction = database->BeginTransaction();
    CreateStoreTables(*database);
    AddOptions(*database, shop);
    AddCustomers(*database, shop);
    AddProducts(*database, shop);
    AddSellersAndTax(*database, shop);
    transaction->Commit();
}

void WriteWorkDatabase(const std::filesystem::path& file) {
    const auto database = platform::SqliteEngine().CreateDatabase(file.string());
    const auto transaction = database->BeginTransaction();
    CreateSalesTables(*database);
    transaction->Commit();
}

}  // namespace demo
