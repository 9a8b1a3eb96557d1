// The databases beside the data sets: the store's own, with options and master data, and the work
// database, which starts empty.
#pragma once

#include <filesystem>

#include "demo/shop.h"

namespace demo {

void WriteStoreDatabase(const std::filesystem::path& file, const Shop& shop);
void WriteWorkDatabase(const std::filesystem::path& file);

}  // namespace demo
