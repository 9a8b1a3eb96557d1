#include "platform/database/field_names.h"

#include "platform/error.h"
#include "platform/text.h"

namespace platform::database {
namespace {

char LowerAscii(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool IsAscii(char character) {
    return static_cast<unsigned char>(character) < 0x80;
}

// Field names are looked up for every value of every row: most differ in the first letter.
bool IsSameName(std::string_view left, std::string_view right) {
    for (std::size_t i = 0; i < left.size() && i < right.size(); ++i) {
        if (!IsAscii(left[i]) || !IsAscii(right[i])) return EqualsIgnoreCase(left, right);
        if (LowerAscii(left[i]) != LowerAscii(right[i])) return false;
    }
    return left.size() == right.size();
}

}  // namespace

std::size_t PlaceOfField(const std::vector<std::string>& fields, std::string_view name,
                         std::string_view source) {
    for (std::size_t place = 0; place < fields.size(); ++place) {
        if (IsSameName(fields[place], name)) return place;
    }
    throw RuntimeError(error_number::kFieldNotFound,
                       std::string(source) + ": there is no field '" + std::string(name) + "'.");
}

}  // namespace platform::database
