#include "platform/recordset_file/typed_value.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <system_error>

#include "platform/error.h"
#include "platform/number_text.h"
#include "platform/text.h"

namespace platform::recordset_file {

namespace {

struct TypeName {
    std::string_view name;
    FieldType type;
};

constexpr TypeName kTypeNames[] = {
    {"boolean", FieldType::Boolean},   {"bool", FieldType::Boolean},
    {"i1", FieldType::Int8},           {"ui1", FieldType::UInt8},
    {"i2", FieldType::Int16},          {"ui2", FieldType::UInt16},
    {"int", FieldType::Int32},         {"i4", FieldType::Int32},
    {"integer", FieldType::Int32},     {"ui4", FieldType::UInt32},
    {"i8", FieldType::Int64},          {"ui8", FieldType::UInt64},
    {"r4", FieldType::Single},         {"float", FieldType::Double},
    {"r8", FieldType::Double},         {"number", FieldType::Double},
    {"currency", FieldType::Currency}, {"decimal", FieldType::Double},
    {"numeric", FieldType::Double},    {"varnumeric", FieldType::Double},
    {"dateTime", FieldType::DateTime}, {"date", FieldType::Date},
    {"time", FieldType::Time},
};

struct WholeRange {
    std::int64_t least;
    std::int64_t greatest;
};

template <class Number>
constexpr WholeRange kRangeOf{std::numeric_limits<Number>::min(),
                              std::numeric_limits<Number>::max()};

// Half a step above the greatest value of a 32-bit floating-point number: what still rounds to it.
constexpr double kSingleBound = 0x1.ffffffp127;
constexpr std::size_t kQuotedLength = 60;

[[noreturn]] void Refuse(std::string_view text, std::string_view reason) {
    throw RuntimeError(error_number::kInvalidFileFormat,
                       Quoted(text) + " " + std::string(reason) + ".");
}

// Takes off the blanks around and a leading plus, which std::from_chars does not know. Nothing is
// left of what can not be a number; that keeps out the names of infinities, too.
std::string_view NumberPart(std::string_view text) {
    text = Trim(text);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) return {};
    }
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    if (first >= text.size()) return {};
    const char start = text[first];
    return (start >= '0' && start <= '9') || start == '.' ? text : std::string_view{};
}

// Parses all of `part`; `error` tells out of range from no number at all.
template <class Number>
Number Parse(std::string_view part, std::errc& error) {
    Number number{};
    const char* end = part.data() + part.size();
    const auto result = std::from_chars(part.data(), end, number);
    error = result.ec;
    if (part.empty() || result.ptr != end) error = std::errc::invalid_argument;
    return number;
}

void ReadWhole(std::string_view text, WholeRange range, Value& value) {
    std::errc error{};
    const auto number = Parse<std::int64_t>(NumberPart(text), error);
    if (error == std::errc::invalid_argument) Refuse(text, "is no whole number");
    if (error != std::errc{} || number < range.least || number > range.greatest) {
        Refuse(text, "is out of the range of the column's type");
    }
    value = Value(number);
}

// The upper half of the range does not fit a whole-number value: floating point holds it to about
// 15 digits, which is better than refusing what the type allows.
void ReadUInt64(std::string_view text, Value& value) {
    std::errc error{};
    const std::string_view part = NumberPart(text);
    if (part.starts_with('-')) return ReadWhole(text, {0, 0}, value);
    const auto number = Parse<std::uint64_t>(part, error);
    if (error == std::errc::invalid_argument) Refuse(text, "is no whole number");
    if (error != std::errc{}) Refuse(text, "is out of the range of the column's type");
    if (number <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
        value = Value(static_cast<std::int64_t>(number));
    } else {
        value = Value(static_cast<double>(number));
    }
}

void ReadFloating(std::string_view text, double bound, Value& value) {
    std::errc error{};
    const double number = Parse<double>(NumberPart(text), error);
    if (error == std::errc::invalid_argument) Refuse(text, "is no number");
    if (error != std::errc{} || std::fabs(number) > bound) {
        Refuse(text, "is out of the range of the column's type");
    }
    constexpr double kExact = 9007199254740992.0;  // whole numbers below keep all digits
    const bool loses = std::fabs(number) >= kExact;
    const auto whole = loses ? ParseWholeNumber(text) : std::nullopt;
    value = whole ? Value::FloatingOf(*whole) : Value(number);
}

// Writers spell it as a word, databases as -1 or 1.
void ReadBoolean(std::string_view text, Value& value) {
    if (text == "True" || text == "1" || text == "-1" || EqualsIgnoreCase(text, "true")) {
        value = Value(true);
    } else if (text == "False" || text == "0" || EqualsIgnoreCase(text, "false")) {
        value = Value(false);
    } else {
        Refuse(text, "is neither true nor false");
    }
}

bool TakeMark(std::string_view& text, char mark) {
    if (!text.starts_with(mark)) return false;
    text.remove_prefix(1);
    return true;
}

template <class Number>
bool TakeDigits(std::string_view& text, std::size_t count, Number& number) {
    if (text.size() < count) return false;
    int sum = 0;
    for (const char digit : text.substr(0, count)) {
        if (digit < '0' || digit > '9') return false;
        sum = sum * 10 + (digit - '0');
    }
    number = static_cast<Number>(sum);
    text.remove_prefix(count);
    return true;
}

bool TakeDate(std::string_view& text, DateTime& moment) {
    return TakeDigits(text, 4, moment.year) && TakeMark(text, '-') &&
           TakeDigits(text, 2, moment.month) && TakeMark(text, '-') &&
           TakeDigits(text, 2, moment.day);
}

// With a fraction of up to nine digits, which is dropped, and the mark of world time, which is
// dropped too: the writers that set it mean local time.
bool TakeTime(std::string_view& text, DateTime& moment) {
    if (!TakeDigits(text, 2, moment.hour) || !TakeMark(text, ':') ||
        !TakeDigits(text, 2, moment.minute) || !TakeMark(text, ':') ||
        !TakeDigits(text, 2, moment.second)) {
        return false;
    }
    if (TakeMark(text, '.')) {
        int ignored = 0;
        std::size_t digits = 0;
        while (digits < 9 && TakeDigits(text, 1, ignored))
            ++digits;
        if (digits == 0) return false;
    }
    TakeMark(text, 'Z');
    return true;
}

// A date alone is midnight, a time alone the day 0 of the calendar, both only where allowed.
bool TakeMoment(FieldType type, std::string_view text, DateTime& moment) {
    if (type == FieldType::Date) return TakeDate(text, moment) && text.empty();
    const bool timeAlone = type == FieldType::Time || (text.size() > 2 && text[2] == ':');
    if (timeAlone) return TakeTime(text, moment) && text.empty();
    if (!TakeDate(text, moment)) return false;
    return text.empty() || (TakeMark(text, 'T') && TakeTime(text, moment) && text.empty());
}

void ReadMoment(FieldType type, std::string_view text, Value& value) {
    DateTime moment;
    if (!TakeMoment(type, text, moment)) {
        Refuse(text, type == FieldType::Time ? "is no time of day" : "is no date");
    }
    if (!IsValid(moment)) Refuse(text, "is a date or a time that does not exist");
    value = Value(moment);
}

}  // namespace

FieldType FieldTypeOf(std::string_view type, std::string_view dbType) {
    FieldType found = FieldType::Text;
    for (const TypeName& known : kTypeNames) {
        if (EqualsIgnoreCase(type, known.name)) found = known.type;
    }
    if (EqualsIgnoreCase(type, "number") && EqualsIgnoreCase(dbType, "currency")) {
        found = FieldType::Currency;
    }
    if (found == FieldType::DateTime && EqualsIgnoreCase(dbType, "date")) found = FieldType::Date;
    if (found == FieldType::DateTime && EqualsIgnoreCase(dbType, "time")) found = FieldType::Time;
    return found;
}

void ReadValue(FieldType type, std::string_view text, Value& value) {
    switch (type) {
        case FieldType::Text:
            return value.AssignText(text);
        case FieldType::Boolean:
            return ReadBoolean(text, value);
        case FieldType::Int8:
            return ReadWhole(text, kRangeOf<std::int8_t>, value);
        case FieldType::UInt8:
            return ReadWhole(text, kRangeOf<std::uint8_t>, value);
        case FieldType::Int16:
            return ReadWhole(text, kRangeOf<std::int16_t>, value);
        case FieldType::UInt16:
            return ReadWhole(text, kRangeOf<std::uint16_t>, value);
        case FieldType::Int32:
            return ReadWhole(text, kRangeOf<std::int32_t>, value);
        case FieldType::UInt32:
            return ReadWhole(text, kRangeOf<std::uint32_t>, value);
        case FieldType::Int64:
            return ReadWhole(text, kRangeOf<std::int64_t>, value);
        case FieldType::UInt64:
            return ReadUInt64(text, value);
        case FieldType::Single:
            return ReadFloating(text, kSingleBound, value);
        case FieldType::Double:
            return ReadFloating(text, std::numeric_limits<double>::max(), value);
        case FieldType::Currency:
            return ReadFloating(text, kCurrencyBound, value);
        case FieldType::DateTime:
        case FieldType::Date:
        case FieldType::Time:
            return ReadMoment(type, text, value);
    }
}

std::string Quoted(std::string_view text) {
    std::string shown = Left(text, kQuotedLength);
    if (shown.size() < text.size()) shown += "...";
    return '"' + shown + '"';
}

}  // namespace platform::recordset_file
