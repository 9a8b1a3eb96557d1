#include "platform/database/query_number.h"

#include <cstdint>
#include <optional>

#include "platform/error.h"
#include "platform/norwegian.h"

namespace platform::database {

Value QueryNumber(const Value& value, std::string_view field) {
    if (const std::optional<std::int64_t> whole = WholeNumberOf(value)) return *whole;
    std::optional<double> number;
    if (IsNumeric(value)) number = ParseNumber(NumberText(ToDouble(value)));
    if (!number) {
        throw RuntimeError(error_number::kSyntaxError, "Syntax error in query expression: \"" +
                                                           ToText(value) + "\" in " +
                                                           std::string(field) + " is no number");
    }
    if (const std::optional<std::int64_t> whole = Value(*number).Whole()) return *whole;
    return *number;
}

}  // namespace platform::database
