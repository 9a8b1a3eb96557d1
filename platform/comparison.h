// How two values compare in filters and conditions.
#pragma once

#include "platform/value.h"

namespace platform {

enum class Ordering { Less, Equal, Greater, Unordered };

// How two values compare in filters and conditions: numbers by size, dates by time, texts without
// regard to case; true counts as -1 and false as 0 beside a number; a text beside a number counts
// as the number that it spells. Null, and a text that spells no number beside one, is Unordered.
[[nodiscard]] Ordering Compare(const Value& left, const Value& right);

[[nodiscard]] bool Equals(const Value& left, const Value& right);  // null equals nothing

}  // namespace platform
