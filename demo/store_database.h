// The databases beside the data sets: the store's own, with options and master data, and the work
// database, which starts empty.
#pragma once

#include <filesystem>

#include "demo/shop.h"
#include "platform/database/database.h"

namespace demo {

// The store's tables, empty.
void CreateStoreTables(platform::Database& database);

void WriteStoreDatabase(const std::filesystem::path& file, const Shop& shop);
void WriteWorkDatabase(const std::filesystem::path& file);

}  // namespace demo
