// Values as texts and texts as values, by Norwegian conventions whatever the system's locale: those
// of number_text.h and date_text.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/number_text.h"
#include "platform/value.h"

namespace platform {

// The default text of a value: null is nothing, 1234.5 is "1234,5", true is "True", a date is
// "dd.mm.yyyy hh:mm:ss" or, at midnight, "dd.mm.yyyy".
[[nodiscard]] std::string ToText(const Value& value);

[[nodiscard]] std::string TrimmedText(const Value& value);  // without blanks around it

// As ToDouble; nothing for null and for a text that spells no number.
[[nodiscard]] std::optional<double> NumberOf(const Value& value);

// The whole number of 64 bits that the value is or spells, to its last digit; a date is none.
[[nodiscard]] std::optional<std::int64_t> WholeNumberOf(const Value& value);

// Whether the value is a number, true/false, or a text that spells a number.
[[nodiscard]] bool IsNumeric(const Value& value);

// Conversions to numbers: null is error 94, what is not numeric error 13; the integers round halves
// to even, and out of range is error 6. True is -1; a date is its day number (30.12.1899 is 0).
[[nodiscard]] double ToDouble(const Value& value);
[[nodiscard]] std::int16_t ToInt16(const Value& value);
[[nodiscard]] std::int32_t ToInt32(const Value& value);

// As TwoDecimals::Of; nothing for null and for a text that spells no number either.
[[nodiscard]] std::optional<TwoDecimals> ToTwoDecimals(const Value& value);

[[nodiscard]] double RoundToTwoDecimals(const Value& value);  // error 13 where there is none

}  // namespace platform
