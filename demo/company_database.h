// The local SAP company of the demo shop: accounts, one user, price lists, and the customers and
// products that an earlier transfer has brought there.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "demo/shop.h"

namespace demo {

inline constexpr std::string_view kCompanyName = "Demo";
inline constexpr std::string_view kCompanyUser = "manager";
inline constexpr std::string_view kCompanyPassword = "landhandel";

void WriteCompanyDatabase(const std::filesystem::path& file, const Shop& shop, std::uint64_t seed);

}  // namespace demo
