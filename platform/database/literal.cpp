#include "platform/database/literal.h"

#include <algorithm>

#include "platform/error.h"
#include "platform/norwegian.h"

namespace platform {

std::string NumberLiteral(const Value& value, std::string_view field) {
    if (!IsNumeric(value)) {
        throw RuntimeError(error_number::kSyntaxError, "Syntax error in query expression: \"" +
                                                           ToText(value) + "\" in " +
                                                           std::string(field) + " is no number");
    }
    if (const std::int64_t* whole = value.AsWhole()) return std::to_string(*whole);
    std::string text = NumberText(ToDouble(value));
    std::replace(text.begin(), text.end(), ',', '.');
    return text;
}

}  // namespace platform
