// Dates as texts: as ISO 8601 writes them, the same in databases, files and the journal, and by
// Norwegian conventions, as the operator sees them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace platform {

[[nodiscard]] std::string IsoDate(const DateTime& date);  // YYYY-MM-DD

// `YYYY-MM-DD HH:MM:SS`, or with another mark than the blank.
[[nodiscard]] std::string IsoDateTime(const DateTime& moment, char mark = ' ');

// Of such a text, the time optional, the mark a blank or `T`; nothing where it is no moment.
[[nodiscard]] std::optional<DateTime> ParseIsoDate(std::string_view text);

[[nodiscard]] std::string ShortDateText(const DateTime& date);   // dd.mm.yyyy
[[nodiscard]] std::string DateTimeText(const DateTime& moment);  // and hh:mm:ss, midnight too

// Of "dd.mm.yyyy" or "dd/mm/yyyy"; anything else, or a date that does not exist, is error 13.
[[nodiscard]] DateTime ToDate(std::string_view text);

}  // namespace platform
