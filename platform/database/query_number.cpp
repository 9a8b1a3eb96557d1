#include "platform/database/query_number.h"

#include <cmath>
#include <optional>

#include "platform/error.h"
#include "platform/norwegian.h"

namespace platform::database {

Value QueryNumber(const Value& value, std::string_view field) {
    if (value.AsWhole() != nullptr) return value;
    std::optional<double> number;
    if (IsNumeric(value)) number = ParseNumber(NumberText(ToDouble(value)));
    if (!number) {
        throw RuntimeError(error_number::kSyntaxError, "Syntax error in query expression: \"" +
                                                           ToText(value) + "\" in " +
                                                           std::string(field) + " is no number");
    }
    constexpr double kExact = 9007199254740992.0;  // whole numbers below are exact
    if (std::trunc(*number) == *number && std::abs(*number) < kExact) {
        return static_cast<std::int64_t>(*number);
    }
    return *number;
}

}  // namespace platform::database
