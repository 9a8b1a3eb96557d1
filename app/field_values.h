// Conversions that the transfers use when they take values out of database and data-set fields,
// where a field may be null, blank, numeric text or a date.
#pragma once

#include <cstdint>
#include <string>

#include "platform/value.h"

namespace app {

// The value's text without its leading blanks; one blank where it is null or blank.
[[nodiscard]] std::string NzText(const platform::Value& value);

// The value itself, unchanged, when it is numeric (a numeric text stays a text); else the number 0.
[[nodiscard]] platform::Value NzNumber(const platform::Value& value);

// A date as year, month and day, "20050305".
[[nodiscard]] std::string DateToYmd(const platform::DateTime& date);

// A number of the form YYYYMMDD as a short date text ("05.03.2005"); the empty text up to 10000000.
// Digits that form no date are error 13.
[[nodiscard]] std::string YmdToDateText(std::int32_t ymd);

}  // namespace app
