#include "demo/shop.h"

#include <algorithm>
#include <chrono>

#include "demo/random.h"

namespace demo {

namespace {

constexpr std::int64_t kUnchangedCustomers = 40;
constexpr std::int64_t kUnchangedProducts = 140;
constexpr std::int64_t kFirstCustomerId = 10000;
constexpr std::int64_t kFirstProductId = 1001;
constexpr int kSellers = 6;

std::string Padded(std::int64_t number, std::size_t width) {
    std::string digits = std::to_string(number);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

// Rows behind the unchanged ones are new and changed by turns.
MasterStatus StatusOf(std::int64_t index, std::int64_t unchanged) {
    if (index < unchanged) return MasterStatus::Transferred;
    return (index - unchanged) % 2 == 0 ? MasterStatus::New : MasterStatus::Changed;
}

std::string PersonName(Random& random) {
    std::string name(random.Pick(FirstNames()));
    return name.append(" ").append(random.Pick(LastNames()));
}

Customer AnonymousCustomer() {
    Customer customer;
    customer.id = std::to_string(kFirstCustomerId);
    customer.name = "Kontantkunde";
    customer.place = {"3800", "BØ I TELEMARK"};
    return customer;
}

Customer AccountCustomer(std::int64_t index, Random& random) {
    Customer customer;
    customer.id = std::to_string(kFirstCustomerId + index);
    customer.contact = PersonName(random);
    customer.name =
        random.Chance(60)
            ? std::string(random.Pick(LastNames())).append(" ").append(random.Pick(Trades()))
            : customer.contact;
    customer.address =
        std::string(random.Pick(Streets())).append(" ") + std::to_string(random.Between(1, 120));
    if (random.Chance(20)) customer.addressLine2 = "Postboks " + std::to_string(index);
    customer.place = random.Pick(Places());
    customer.phone = "35" + Padded(random.Between(0, 999999), 6);
    if (random.Chance(70)) customer.email = "kunde" + customer.id + "@post.example";
    customer.priceGroup = static_cast<int>(random.Between(0, 3));
    constexpr double kDiscounts[] = {0, 0, 2.5, 5, 10};
    customer.discount = random.Pick(kDiscounts);
    customer.status = StatusOf(index, kUnchangedCustomers);
    return customer;
}

std::string ProductName(const Goods& goods, std::size_t round) {
    const auto brands = Brands();
    std::string name(goods.name);
    if (round % brands.size() != 0) name.append(" ").append(brands[round % brands.size()]);
    if (round >= brands.size()) name += " nr. " + std::to_string(round / brands.size() + 1);
    return name;
}

Product MakeProduct(std::int64_t index, std::int64_t makerNo, Random& random) {
    const auto position = static_cast<std::size_t>(index);
    const Goods& goods = AllGoods()[position % AllGoods().size()];
    Product product;
    product.id = std::to_string(kFirstProductId + index);
    // 70 is the prefix of Norwegian articles.
    product.barCode = WithCheckDigit("70" + Padded(makerNo, 4) + Padded(index % 1000000, 6));
    product.description = ProductName(goods, position / AllGoods().size());
    // Prices on a shelf end in 90 øre; a service has that of the table.
    product.price = goods.isService ? goods.price
                                    : goods.price * random.Between(85, 130) / 100 / 100 * 100 + 90;
    const std::int64_t withoutVat = product.price * 100 / (100 + kVatClasses[goods.vatClass].rate);
    product.costPrice = withoutVat * random.Between(45, 80) / 100;
    product.vatClass = goods.vatClass;
    product.isWeighed = goods.isWeighed;
    product.isService = goods.isService;
    product.status = StatusOf(index, kUnchangedProducts);
    return product;
}

// A day on which the shop is open.
int OpenDay(Random& random) {
    using namespace std::chrono;
    sys_days day = sys_days{year{2025} / January / 2} + days{random.Between(0, 360)};
    if (weekday{day} == Sunday) day -= days{1};
    const year_month_day date{day};
    return static_cast<int>(date.year()) * 10000 +
           static_cast<int>(static_cast<unsigned>(date.month())) * 100 +
           static_cast<int>(static_cast<unsigned>(date.day()));
}

}  // namespace

std::string WithCheckDigit(std::string digits) {
    int sum = 0;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const int digit = digits[i] - '0';
        sum += i % 2 == 0 ? digit : 3 * digit;
    }
    digits += static_cast<char>('0' + (10 - sum % 10) % 10);
    return digits;
}

Shop MakeShop(const ShopOptions& options) {
    Shop shop;
    Random forShop(options.seed, "shop");
    shop.date = options.date.value_or(OpenDay(forShop));
    shop.nextVoucherNo = static_cast<int>(forShop.Between(1, 90)) * 100 + 1;
    const std::int64_t makerNo = forShop.Between(0, 9999);
    for (int i = 0; i < kSellers; ++i)
        shop.sellers.push_back(PersonName(forShop));

    Random forCustomers(options.seed, "customers");
    shop.customers.push_back(AnonymousCustomer());
    for (std::int64_t i = 1; i < kUnchangedCustomers + options.changedCustomers; ++i) {
        shop.customers.push_back(AccountCustomer(i, forCustomers));
    }
    Random forProducts(options.seed, "products");
    for (std::int64_t i = 0; i < kUnchangedProducts + options.changedProducts; ++i) {
        shop.products.push_back(MakeProduct(i, makerNo, forProducts));
        shop.productsByVat[shop.products.back().vatClass].push_back(static_cast<std::size_t>(i));
    }
    return shop;
}

}  // namespace demo
