#include "platform/database/query_number.h"

#include "platform/error.h"
#include "platform/norwegian.h"

namespace platform::database {

std::int64_t QueryNumber(const Value& value, std::string_view field) {
    if (const std::optional<std::int64_t> number = WholeNumberOf(value)) return *number;
    throw RuntimeError(error_number::kSyntaxError,
                       "Syntax error in query expression: \"" + ToText(value) + "\" in " +
                           std::string(field) +
                           (IsNumeric(value) ? " is no whole number" : " is no number"));
}

}  // namespace platform::database
