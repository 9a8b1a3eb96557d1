// The shop in memory: its customers, products, sellers and the day. Knows no files.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "demo/catalogue.h"
#include "demo/options.h"

namespace demo {

// Marks of master data: what the next transfer has to do with the row.
enum class MasterStatus { Transferred = 0, New = 1, Changed = 2 };

struct Customer {
    std::string id;  // digits: it is also the number of the customer's account
    std::string name;
    std::string address;
    std::string addressLine2;
    Place place;
    std::string phone;
    std::string email;
    int priceGroup = 0;
    double discount = 0;  // per cent
    std::string contact;
    MasterStatus status = MasterStatus::Transferred;
};

struct Product {
    std::string id;
    std::string barCode;
    std::string description;
    std::int64_t price = 0;      // øre with VAT
    std::int64_t costPrice = 0;  // øre without VAT
    std::size_t vatClass = 0;    // in kVatClasses
    bool isWeighed = false;
    bool isService = false;
    MasterStatus status = MasterStatus::Transferred;
};

struct Shop {
    std::vector<Customer> customers;  // the first is the anonymous one
    std::vector<Product> products;
    std::array<std::vector<std::size_t>, kVatClasses.size()> productsByVat;  // positions
    std::vector<std::string> sellers;
    int date = 0;  // YYYYMMDD
    int nextVoucherNo = 0;
};

[[nodiscard]] Shop MakeShop(const ShopOptions& options);

// Twelve digits with the EAN-13 check digit behind them.
[[nodiscard]] std::string WithCheckDigit(std::string digits);

}  // namespace demo
