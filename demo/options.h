// What a demo shop is to be like: the command line of the demo program as values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace demo {

struct ShopOptions {
    std::string folder;
    std::int64_t sales = 40;            // of each data set
    std::optional<std::int64_t> lines;  // records of each lines file; kLinesPerTwoSales without
    int dataSets = 2;
    std::int64_t changedCustomers = 3;
    std::int64_t changedProducts = 5;
    bool sap = false;
    std::uint64_t seed = 1;
    std::optional<int> date;  // YYYYMMDD; without it the seed gives one
};

inline constexpr std::int64_t kLinesPerTwoSales = 7;

// The fewest records that a receipt has: what is sold and how it is paid.
inline constexpr std::int64_t kFewestLinesPerSale = 2;

}  // namespace demo
