// The filter of a recordset: `field op literal` comparisons joined by `and`.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/value.h"

namespace platform {

enum class Comparison { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

struct FilterTerm {
    std::string field;
    Comparison comparison = Comparison::Equal;
    Value literal;  // a number or a text
};

// The terms of a filter text. Operators =, <>, <, <=, >, >=; literals are numbers or texts in
// single quotation marks (doubled inside); `and` in any case. Anything else is error 3075 with the
// text.
[[nodiscard]] std::vector<FilterTerm> ParseFilter(std::string_view filter);

// Whether a field's value passes a term, by the rules of Compare(): texts ignore case, a null field
// passes nothing.
[[nodiscard]] bool Passes(const FilterTerm& term, const Value& value);

}  // namespace platform
