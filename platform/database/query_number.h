// Values that queries and filters compare numbers with.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/value.h"

namespace platform::database {

// The whole number that a value is or spells, to its last digit, for it tells one record from all
// others. What is none (null, a fraction, more than 64 bits, any other text) is error 3075, naming
// `field`.
[[nodiscard]] std::int64_t QueryNumber(const Value& value, std::string_view field);

}  // namespace platform::database
