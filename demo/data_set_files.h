// The two files of a data set, written receipt by receipt.
#pragma once

#include <cstdint>
#include <filesystem>

#include "demo/day.h"
#include "demo/shop.h"

namespace demo {

struct DataSet {
    DayPlan plan;
    std::int64_t firstSaleId = 1;
};

void WriteDataSet(const std::filesystem::path& folder, const Shop& shop, const DataSet& dataSet,
                  std::uint64_t seed);

}  // namespace demo
