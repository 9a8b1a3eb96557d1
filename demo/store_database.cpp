#include "demo/store_database.h"

#include <memory>
#include <string_view>
#include <vector>

#include "demo/rows.h"
#include "platform/database/sqlite_engine.h"
#include "store/schema.h"

namespace demo {

namespace {

using platform::Value;

Value StatusValue(MasterStatus status) {
    return static_cast<int>(status);
}

// In the order of the table's columns.
void AddOptions(platform::database::Database& database, const Shop& shop) {
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

void AddCustomers(platform::database::Database& database, const Shop& shop) {
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

void AddProducts(platform::database::Database& database, const Shop& shop) {
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
    // A row of prices has a mark of its own, and is exported by it.
    const auto prices = database.OpenAppender("PriceMatrix");
    for (const Product& product : shop.products) {
        const Value row[] = {product.id, Kroner(product.price), Kroner(product.costPrice),
                             StatusValue(product.status)};
        AddRow(*prices, row);
    }
}

void AddSellersAndTax(platform::database::Database& database, const Shop& shop) {
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

// In one transaction, as every write to disk by itself would take longer than all the rows.
void WriteStoreDatabase(const std::filesystem::path& file, const Shop& shop) {
    const auto database = platform::database::SqliteEngine().CreateDatabase(file.string());
    const auto transaction = database->BeginTransaction();
    store::CreateStoreTables(*database);
    AddOptions(*database, shop);
    AddCustomers(*database, shop);
    AddProducts(*database, shop);
    AddSellersAndTax(*database, shop);
    transaction->Commit();
}

void WriteWorkDatabase(const std::filesystem::path& file) {
    const auto database = platform::database::SqliteEngine().CreateDatabase(file.string());
    const auto transaction = database->BeginTransaction();
    store::CreateSalesTables(*database);
    transaction->Commit();
}

}  // namespace demo
