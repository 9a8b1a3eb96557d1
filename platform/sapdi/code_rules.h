// What every connector asks of codes before it sends them, and how its errors name them. A code
// that is blank is none.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace platform::sapdi {

inline constexpr std::string_view kCustomerCodeNoun = "Customer code";
inline constexpr std::string_view kItemCodeNoun = "Item code";

// The text of a value, empty where it is none.
[[nodiscard]] std::string_view TextOf(const Value& value);

// How an error's text begins: "Line 2: " for line 1, as lines count from 0; empty without a line.
[[nodiscard]] std::string PlaceOf(std::optional<std::size_t> line);

// Error -5002 where the code is blank.
void RequireNotBlank(std::string_view noun, std::string_view code,
                     std::optional<std::size_t> line = {});

}  // namespace platform::sapdi
