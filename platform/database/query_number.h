// Values that queries and filters compare numbers with.
#pragma once

#include <string_view>

#include "platform/value.h"

namespace platform::database {

// The number that a value is or spells: a whole one to its last digit, for it tells one record from
// all others, another to 15 significant digits. A value that is no number (null, or a text that
// spells none) is error 3075, naming `field`.
[[nodiscard]] Value QueryNumber(const Value& value, std::string_view field);

}  // namespace platform::database
