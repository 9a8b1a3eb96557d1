#include "platform/database/sqlite_types.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/text.h"

namespace platform {
namespace {

struct TypeRule {
    std::string_view part;
    FieldType type;
};

// The first part that a declared type contains decides.
constexpr std::array kTypeRules = {
    TypeRule{"BOOL", FieldType::Boolean},  TypeRule{"YESNO", FieldType::Boolean},
    TypeRule{"BIT", FieldType::Boolean},   TypeRule{"DATE", FieldType::Date},
    TypeRule{"TIME", FieldType::Date},     TypeRule{"INT", FieldType::Whole},
    TypeRule{"LONG", FieldType::Whole},    TypeRule{"SHORT", FieldType::Whole},
    TypeRule{"BYTE", FieldType::Whole},    TypeRule{"COUNTER", FieldType::Whole},
    TypeRule{"DOUB", FieldType::Floating}, TypeRule{"FLOA", FieldType::Floating},
    TypeRule{"REAL", FieldType::Floating}, TypeRule{"SINGLE", FieldType::Floating},
    TypeRule{"CURR", FieldType::Floating}, TypeRule{"MONEY", FieldType::Floating},
    TypeRule{"DEC", FieldType::Floating},  TypeRule{"NUM", FieldType::Floating},
};

std::optional<double> NumberOf(const Value& value) {
    if (const auto* number = value.AsFloating()) return *number;
    if (const auto* number = value.AsWhole()) return static_cast<double>(*number);
    if (const auto* truth = value.AsBoolean()) return *truth ? -1.0 : 0.0;
    if (const auto* text = value.AsText()) return ParseNumber(*text);
    return std::nullopt;
}

std::optional<Value> FittedWhole(const Value& value) {
    const std::optional<double> number = NumberOf(value);
    constexpr double kEnd = 9223372036854775808.0;  // one past the largest whole number
    if (!number) return std::nullopt;
    const double rounded = std::nearbyint(*number);  // halves to even
    if (!(rounded >= -kEnd && rounded < kEnd)) return std::nullopt;
    return Value(static_cast<std::int64_t>(rounded));
}

std::optional<Value> FittedFloating(const Value& value) {
    const std::optional<double> number = NumberOf(value);
    if (!number) return std::nullopt;
    return Value(*number);
}

std::optional<Value> FittedBoolean(const Value& value) {
    if (const auto* text = value.AsText()) {
        if (EqualsIgnoreCase(*text, "True")) return Value(true);
        if (EqualsIgnoreCase(*text, "False")) return Value(false);
    }
    const std::optional<double> number = NumberOf(value);
    if (!number) return std::nullopt;
    return Value(*number != 0);
}

std::string_view TypeName(FieldType type) {
    switch (type) {
        case FieldType::Boolean:
            return "true/false";
        case FieldType::Date:
            return "date";
        case FieldType::Whole:
            return "whole number";
        case FieldType::Floating:
            return "number";
        default:
            return "text";
    }
}

// The number that exactly these digits spell, -1 where one of them is no digit.
int Digits(std::string_view text, std::size_t position, std::size_t count) {
    int number = 0;
    for (const char digit : text.substr(position, count)) {
        if (digit < '0' || digit > '9') return -1;
        number = number * 10 + (digit - '0');
    }
    return number;
}

void AppendDigits(std::string& text, int number, std::size_t count) {
    const std::string digits = std::to_string(number);
    text.append(count > digits.size() ? count - digits.size() : 0, '0').append(digits);
}

bool HasTimeShape(std::string_view text) {
    return (text[10] == ' ' || text[10] == 'T') && text[13] == ':' && text[16] == ':';
}

}  // namespace

FieldType TypeOfDeclaration(std::string_view declaration) {
    if (declaration.empty()) return FieldType::AsStored;
    const std::string upper = Upper(declaration);
    for (const TypeRule& rule : kTypeRules) {
        if (upper.find(rule.part) != std::string::npos) return rule.type;
    }
    return FieldType::Text;
}

bool HasType(const Value& value, FieldType type) {
    if (value.IsNull()) return true;
    switch (type) {
        case FieldType::Boolean:
            return value.AsBoolean() != nullptr;
        case FieldType::Date:
            return value.AsDate() != nullptr && IsValid(*value.AsDate());
        case FieldType::Whole:
            return value.AsWhole() != nullptr;
        case FieldType::Floating:
            return value.AsFloating() != nullptr;
        case FieldType::Text:
            return value.AsText() != nullptr;
        case FieldType::AsStored:
            break;
    }
    return true;
}

std::optional<Value> Fitted(const Value& value, FieldType type) {
    if (HasType(value, type)) return value;
    switch (type) {
        case FieldType::Boolean:
            return FittedBoolean(value);
        case FieldType::Whole:
            return FittedWhole(value);
        case FieldType::Floating:
            return FittedFloating(value);
        case FieldType::Text:
            return Value(ToText(value));
        default:
            return std::nullopt;
    }
}

Value FittedOrError(const Value& value, FieldType type, std::string_view place) {
    std::optional<Value> fitted = Fitted(value, type);
    if (!fitted) {
        throw RuntimeError(error_number::kDataTypeConversion,
                           std::string(place) + ": '" + ToText(value) + "' is no " +
                               std::string(TypeName(type)) + ".");
    }
    return *std::move(fitted);
}

std::string StoredDate(const DateTime& moment) {
    std::string text;
    text.reserve(19);
    AppendDigits(text, moment.year, 4);
    AppendDigits(text += '-', moment.month, 2);
    AppendDigits(text += '-', moment.day, 2);
    AppendDigits(text += ' ', moment.hour, 2);
    AppendDigits(text += ':', moment.minute, 2);
    AppendDigits(text += ':', moment.second, 2);
    return text;
}

std::optional<DateTime> ParseStoredDate(std::string_view text) {
    if (text.size() != 10 && text.size() != 19) return std::nullopt;
    if (text[4] != '-' || text[7] != '-') return std::nullopt;
    const bool timed = text.size() == 19;
    if (timed && !HasTimeShape(text)) return std::nullopt;

    const std::array parts = {Digits(text, 0, 4),
                              Digits(text, 5, 2),
                              Digits(text, 8, 2),
                              timed ? Digits(text, 11, 2) : 0,
                              timed ? Digits(text, 14, 2) : 0,
                              timed ? Digits(text, 17, 2) : 0};
    if (std::ranges::any_of(parts, [](int part) { return part < 0; })) return std::nullopt;
    const DateTime moment{static_cast<std::int16_t>(parts[0]), static_cast<std::int8_t>(parts[1]),
                          static_cast<std::int8_t>(parts[2]),  static_cast<std::int8_t>(parts[3]),
                          static_cast<std::int8_t>(parts[4]),  static_cast<std::int8_t>(parts[5])};
    if (!IsValid(moment)) return std::nullopt;
    return moment;
}

}  // namespace platform
