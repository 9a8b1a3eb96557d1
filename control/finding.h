// What a check has found: which rule is broken, where, and what to do. Knows no rule and no output.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace control {

// Error: the run would stop, or money would be posted wrongly or in no posting. Warning: probably
// wrong. Note: good to know.
enum class Severity { Error, Warning, Note };

struct Finding {
    std::string_view code;  // of a rule
    Severity severity = Severity::Error;
    std::optional<std::string> dataSet;  // its display name; none for settings and shop
    std::optional<std::string> sale;     // its ID
    std::optional<std::int64_t> line;    // LineNo; for K102 the line of the file
    std::optional<std::string> field;
    std::optional<std::string> value;
    std::string text;    // what is wrong
    std::string remedy;  // what to do
};

// Where a rule is broken, as the checks tell it; the rule's own severity and texts count where
// none are given.
struct Place {
    std::optional<std::string> sale = {};
    std::optional<std::int64_t> line = {};
    std::optional<std::string> field = {};
    std::optional<std::string> value = {};
    std::optional<Severity> severity = {};
    std::string text = {};  // in the place of the rule's
};

}  // namespace control
