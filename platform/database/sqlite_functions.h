// What the system's SQL means beyond the library's own functions: exact sums of amounts, and texts
// compared without regard to case. Internal to this folder.
#pragma once

#include <string_view>

struct sqlite3;

namespace platform::database {

// Compares texts without regard to the case of any Latin letter; NOCASE knows A to Z alone.
inline constexpr std::string_view kTextCollation = "KVTEXT";

inline constexpr std::string_view kSumOverflowMessage = "overflow in sum()";

// Makes them known to a connection; gives the library's result code.
[[nodiscard]] int RegisterFunctions(sqlite3* connection);

}  // namespace platform::database
