// Values as texts and texts as values, by Norwegian conventions whatever the system's locale:
// decimal comma, no grouping, dates as dd.mm.yyyy. The only place that knows these rules.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace platform {

// The default text of a value: null is nothing, 1234.5 is "1234,5", true is "True", a date is
// "dd.mm.yyyy hh:mm:ss" or, at midnight, "dd.mm.yyyy".
[[nodiscard]] std::string ToText(const Value& value);

// At most 15 significant digits, decimal comma, exponent form ("1E-05", "1,5E+15") where the
// exponent is below -4 or 15 and more.
[[nodiscard]] std::string NumberText(double number);

// The number that a text spells: blanks around it aside, an optional sign, digits with at most one
// decimal mark (comma or point), an optional exponent. Nothing where it spells none.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);

// Whether the value is a number, true/false, or a text that spells a number.
[[nodiscard]] bool IsNumeric(const Value& value);

// Conversions to numbers: null is error 94, what is not numeric error 13; the integers round halves
// to even, and out of range is error 6. True is -1; a date is its day number (30.12.1899 is 0).
[[nodiscard]] double ToDouble(const Value& value);
[[nodiscard]] std::int16_t ToInt16(const Value& value);
[[nodiscard]] std::int32_t ToInt32(const Value& value);

// The patterns "####0.00" and "###0.00": at least one digit, two decimals, decimal comma, halves
// away from zero judged on the text of 15 significant digits (1.005 gives 1,01), no minus in front
// of 0,00. Null gives the empty text, a text that is not numeric stays as it is; what is
// infinite or no number at all is error 6.
[[nodiscard]] std::string FormatTwoDecimals(const Value& value);

// The number that FormatTwoDecimals shows; where it shows none (of null too) error 13.
[[nodiscard]] double RoundTwoDecimals(const Value& value);

// "dd.mm.yyyy" and "dd.mm.yyyy hh:mm:ss" (the latter always with its time).
[[nodiscard]] std::string ShortDateText(const DateTime& date);
[[nodiscard]] std::string DateTimeText(const DateTime& moment);

// The date of a text "dd.mm.yyyy" or "dd/mm/yyyy"; anything else, or a date that does not exist,
// is error 13.
[[nodiscard]] DateTime ToDate(std::string_view text);

}  // namespace platform
