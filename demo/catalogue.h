// What a Norwegian village shop is made of: goods, names, streets, places, accounts. Tables only;
// nothing is chosen here.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace demo {

// Codes of value added tax on sales, as Norwegian bookkeeping numbers them.
struct VatClass {
    int code;
    int rate;             // per cent
    int salesAccount;     // 0: the shop's default sales account
    int shareOfTheSales;  // per cent
};
inline constexpr std::array<VatClass, 4> kVatClasses = {
    {{3, 25, 0, 35}, {31, 15, 3010, 40}, {33, 12, 3020, 10}, {5, 0, 3100, 15}}};

struct Goods {
    std::string_view name;
    std::int64_t price;  // øre with VAT
    std::size_t vatClass;
    bool isWeighed = false;  // sold by the kilogram
    bool isService = false;
};

struct Place {
    std::string_view postalCode;
    std::string_view name;
};

struct Account {
    int number;
    std::string_view name;
};

// Accounts of the standard chart that the shop's options name.
namespace account {
inline constexpr int kReceivables = 1500;
inline constexpr int kFirstCard = 1581;  // the seven cards follow one another
inline constexpr int kCash = 1900;
inline constexpr int kBank = 1920;
inline constexpr int kIou = 2905;
inline constexpr int kSales = 3000;
inline constexpr int kRounding = 7740;
}  // namespace account

inline constexpr std::array<std::string_view, 7> kCardNames = {
    "Bankkort", "Debetkort", "Kredittkort", "Firmakort", "Gavekort", "Reisekort", "Drivstoffkort"};
inline constexpr std::string_view kIouName = "Tilgodelapp";
inline constexpr std::string_view kShopName = "Bø Landhandel";

[[nodiscard]] std::span<const Goods> AllGoods();
[[nodiscard]] std::span<const std::string_view> Brands();
[[nodiscard]] std::span<const std::string_view> FirstNames();
[[nodiscard]] std::span<const std::string_view> LastNames();
[[nodiscard]] std::span<const std::string_view> Trades();
[[nodiscard]] std::span<const std::string_view> Streets();
[[nodiscard]] std::span<const Place> Places();
[[nodiscard]] std::span<const Account> ChartOfAccounts();

}  // namespace demo
