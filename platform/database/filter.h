// The filter of rows in memory: `field op literal` comparisons joined by `and`.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/row_set.h"
#include "platform/value.h"

namespace platform::database {

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

// Those of the `places` whose rows pass every term, in their order. An unknown field is error 3265.
[[nodiscard]] std::vector<std::size_t> PlacesThatPass(std::span<const FilterTerm> terms,
                                                      const RowSet& rowSet,
                                                      std::span<const std::size_t> places);

}  // namespace platform::database
