#include "platform/recordset_file/value_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/date_text.h"
#include "platform/recordset_file/typed_value.h"
#include "platform/text.h"

namespace platform::recordset_file {

namespace {

// What a character becomes inside an attribute; control characters that XML lacks are refused.
enum class Treatment : unsigned char { Plain, Reference, Refused };

constexpr std::array<Treatment, 256> MakeTreatments() {
    std::array<Treatment, 256> treatments{};
    for (std::size_t code = 0; code < 0x20; ++code)
        treatments[code] = Treatment::Refused;
    for (const char mark : {'&', '\'', '"', '<', '>', '\t', '\r', '\n'}) {
        treatments[static_cast<unsigned char>(mark)] = Treatment::Reference;
    }
    return treatments;
}

constexpr auto kTreatments = MakeTreatments();

void AppendReference(char mark, std::string& out) {
    char digits[4];
    const auto result = std::to_chars(digits, digits + sizeof digits, int{mark}, 16);
    out.append("&#x").append(digits, result.ptr).append(";");
}

template <class Number>
void AppendNumber(Number number, std::string& out) {
    char digits[32];
    const auto result = std::to_chars(digits, digits + sizeof digits, number);
    out.append(digits, result.ptr);
}

Refusal AppendWhole(const Value& value, std::int64_t least, std::int64_t greatest,
                    std::string& out) {
    const std::int64_t* number = value.AsWhole();
    if (number == nullptr) return "is no whole number";
    if (*number < least || *number > greatest) return "is out of the range of the column's type";
    AppendNumber(*number, out);
    return {};
}

std::optional<double> NumberOf(const Value& value) {
    if (const double* number = value.AsFloating()) return *number;
    if (const std::int64_t* number = value.AsWhole()) return static_cast<double>(*number);
    return {};
}

Refusal AppendDouble(const Value& value, std::string& out) {
    const auto number = NumberOf(value);
    if (!number || !std::isfinite(*number)) return "is no number";
    const bool loses = value.Whole() && *value.Whole() != Value(*number).Whole();
    if (loses) {
        AppendNumber(*value.Whole(), out);
    } else {
        AppendNumber(*number, out);
    }
    return {};
}

// Up to four decimals, without zeros at the end.
Refusal AppendCurrency(const Value& value, std::string& out) {
    const auto number = NumberOf(value);
    if (!number || !std::isfinite(*number)) return "is no number";
    if (std::fabs(*number) > kCurrencyBound) return "is out of the range of the column's type";
    char digits[32];
    const auto result =
        std::to_chars(digits, digits + sizeof digits, *number, std::chars_format::fixed, 4);
    std::string_view text(digits, static_cast<std::size_t>(result.ptr - digits));
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.remove_suffix(1);
    out += text == "-0" ? "0" : text;
    return {};
}

Refusal AppendBoolean(const Value& value, std::string& out) {
    const bool* truth = value.AsBoolean();
    if (truth == nullptr) return "is neither true nor false";
    out += *truth ? "True" : "False";
    return {};
}

Refusal AppendDate(const Value& value, std::string& out) {
    const DateTime* moment = value.AsDate();
    if (moment == nullptr || !IsValid(*moment)) return "is no date";
    out += IsoDateTime(*moment, 'T');
    return {};
}

Refusal AppendColumnText(const Value& value, int maxLength, std::string& out) {
    const std::string* text = value.AsText();
    if (text == nullptr) return "is no text";
    const auto limit = static_cast<std::size_t>(maxLength);
    if (text->size() > limit && Length(*text) > limit) return "is too long for the column";
    return AppendAttributeText(*text, out);
}

}  // namespace

Refusal AppendAttributeText(std::string_view text, std::string& out) {
    std::size_t start = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const Treatment treatment = kTreatments[static_cast<unsigned char>(text[place])];
        if (treatment == Treatment::Plain) continue;
        if (treatment == Treatment::Refused) return "holds a control character";
        out.append(text, start, place - start);
        AppendReference(text[place], out);
        start = place + 1;
    }
    out.append(text, start);
    return {};
}

Refusal AppendValue(const Value& value, const RecordsetColumn& column, std::string& out) {
    switch (column.type) {
        case ColumnType::SmallInt:
            return AppendWhole(value, std::numeric_limits<std::int16_t>::min(),
                               std::numeric_limits<std::int16_t>::max(), out);
        case ColumnType::Integer:
            return AppendWhole(value, std::numeric_limits<std::int32_t>::min(),
                               std::numeric_limits<std::int32_t>::max(), out);
        case ColumnType::Double:
            return AppendDouble(value, out);
        case ColumnType::Currency:
            return AppendCurrency(value, out);
        case ColumnType::Boolean:
            return AppendBoolean(value, out);
        case ColumnType::Date:
            return AppendDate(value, out);
        case ColumnType::Text:
            return AppendColumnText(value, column.maxLength, out);
    }
    return "has a type that the writer does not know";
}

}  // namespace platform::recordset_file
