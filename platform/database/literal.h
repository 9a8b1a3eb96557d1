// Values inside SQL and filter texts.
#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace platform {

// The value as a number in SQL and filter text, with a decimal point. A value that is no number
// (null, or text that could be SQL) never becomes part of the text: error 3075, naming `field`.
[[nodiscard]] std::string NumberLiteral(const Value& value, std::string_view field);

}  // namespace platform
