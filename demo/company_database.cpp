#include "demo/company_database.h"

#include <crypt.h>

#include <memory>
#include <string>

#include "demo/random.h"
#include "demo/rows.h"
#include "localcompany/company_schema.h"
#include "platform/database/sqlite_engine.h"
#include "platform/error.h"

namespace demo {

namespace {

using platform::Value;

// The salt comes from the seed, as the file is to come out alike each time.
std::string PasswordHash(std::string_view password, std::uint64_t seed) {
    constexpr std::string_view kSaltLetters =
        "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int kSaltLength = 16;
    Random random(seed, "salt");
    std::string setting = "$6$";
    for (int i = 0; i < kSaltLength; ++i)
        setting += random.Pick(kSaltLetters);

    const auto scratch = std::make_unique<crypt_data>();
    const char* hash = crypt_r(std::string(password).c_str(), setting.c_str(), scratch.get());
    if (hash == nullptr || *hash == '*') {
        throw platform::RuntimeError(platform::error_number::kInvalidArgument,
                                     "The password of the company's user can not be hashed");
    }
    return hash;
}

// What the company's checks ask for: a user, accounts, price lists.
void AddCompany(platform::database::Database& database, std::uint64_t seed) {
    const Value user[] = {kCompanyUser, PasswordHash(kCompanyPassword, seed)};
    AddRow(*database.OpenAppender("OUSR"), user);
    const Value receivables[] = {std::to_string(account::kReceivables)};
    AddRow(*database.OpenAppender("OADM"), receivables);
    const auto accounts = database.OpenAppender("OACT");
    for (const Account& entry : ChartOfAccounts()) {
        const Value row[] = {std::to_string(entry.number), entry.name};
        AddRow(*accounts, row);
    }
    const auto priceLists = database.OpenAppender("OPLN");
    const Value sales[] = {1, "Utsalgspriser"};
    AddRow(*priceLists, sales);
    const Value cost[] = {2, "Kostpriser"};
    AddRow(*priceLists, cost);
}

// A changed customer stands there as it was, without its telephone number.
void AddPartners(platform::database::Database& database, const Shop& shop) {
    const auto partners = database.OpenAppender("OCRD");
    for (const Customer& customer : shop.customers) {
        if (customer.status == MasterStatus::New) continue;
        const bool isChanged = customer.status == MasterStatus::Changed;
        const Value row[] = {customer.id,
                             customer.name,
                             isChanged ? Value(" ") : Value(customer.phone),
                             " ",
                             customer.email,
                             customer.address,
                             customer.addressLine2,
                             customer.place.name,
                             customer.place.postalCode,
                             std::to_string(account::kReceivables)};
        AddRow(*partners, row);
    }
}

// A changed product stands there with its former prices.
void AddItems(platform::database::Database& database, const Shop& shop) {
    const auto items = database.OpenAppender("OITM");
    const auto prices = database.OpenAppender("ITM1");
    for (const Product& product : shop.products) {
        if (product.status == MasterStatus::New) continue;
        const Value item[] = {product.id, product.description};
        AddRow(*items, item);
        const std::int64_t former = product.status == MasterStatus::Changed ? 90 : 100;
        const Value sales[] = {product.id, 1, Kroner(product.price * former / 100)};
        AddRow(*prices, sales);
        const Value cost[] = {product.id, 2, Kroner(product.costPrice * former / 100)};
        AddRow(*prices, cost);
    }
    // The till's own article, by which the transfer asks whether roundings can be lines.
    const Value rounding[] = {"Avrunding", "Avrunding fra Kassovia"};
    AddRow(*items, rounding);
}

}  // namespace

void WriteCompanyDatabase(const std::filesystem::path& file, const Shop& shop, std::uint64_t seed) {
    const auto database = platform::database::SqliteEngine().CreateDatabase(file.string());
    const auto transaction = database->BeginTransaction();
    localcompany::CreateCompanyTables(*database);
    AddCompany(*database, seed);
    AddPartners(*database, shop);
    AddItems(*database, shop);
    transaction->Commit();
}

}  // namespace demo
