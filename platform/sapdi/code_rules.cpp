#include "platform/sapdi/code_rules.h"

#include "platform/error.h"
#include "platform/sapdi/error_codes.h"
#include "platform/text.h"

namespace platform::sapdi {

std::string_view TextOf(const Value& value) {
    const std::string* text = value.AsText();
    return text == nullptr ? std::string_view() : std::string_view(*text);
}

std::string PlaceOf(std::optional<std::size_t> line) {
    return line ? "Line " + std::to_string(*line + 1) + ": " : std::string();
}

void RequireNotBlank(std::string_view noun, std::string_view code,
                     std::optional<std::size_t> line) {
    if (!IsBlank(code)) return;
    throw RuntimeError(error_code::kInvalidValue, PlaceOf(line).append(noun).append(" is missing"));
}

}  // namespace platform::sapdi
