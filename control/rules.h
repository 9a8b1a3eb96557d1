// The rules of the check, each once: its code, how bad a breach is, and what an operator is told.
// Knows nothing of how a breach is found.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "control/finding.h"
#include "control/rule.h"

namespace control {

// All of them, by their codes.
[[nodiscard]] std::span<const Rule> Rules();

// The rule of a code, in any case; null where there is none.
[[nodiscard]] const Rule* FindRule(std::string_view code);

// "feil", "advarsel", "merknad".
[[nodiscard]] std::string_view NorwegianWord(Severity severity);

// `text` with the values of a place in it; a value that there is not is "(tom)".
[[nodiscard]] std::string Filled(std::string_view text, const Place& place);

// What "explain" prints of a rule.
[[nodiscard]] std::string Explanation(const Rule& rule);

}  // namespace control
