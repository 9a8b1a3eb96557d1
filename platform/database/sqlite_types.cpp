#include "platform/database/sqlite_types.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/text.h"

namespace platform::database {
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

// A column of numbers takes no date.
std::optional<double> NumberFor(const Value& value) {
    if (value.AsDate() != nullptr) return std::nullopt;
    return NumberOf(value);
}

std::optional<Value> FittedWhole(const Value& value) {
    if (const auto whole = WholeNumberOf(value)) return Value(*whole);
    const std::optional<double> number = NumberFor(value);
    constexpr double kEnd = 9223372036854775808.0;  // one past the largest whole number
    if (!number) return std::nullopt;
    const double rounded = std::nearbyint(*number);  // halves to even
    if (!(rounded >= -kEnd && rounded < kEnd)) return std::nullopt;
    return Value(static_cast<std::int64_t>(rounded));
}

std::optional<Value> FittedFloating(const Value& value) {
    const std::optional<double> number = NumberFor(value);
    if (!number) return std::nullopt;
    return Value(*number);
}

std::optional<Value> FittedBoolean(const Value& value) {
    if (const auto* text = value.AsText()) {
        if (EqualsIgnoreCase(*text, "True")) return Value(true);
        if (EqualsIgnoreCase(*text, "False")) return Value(false);
    }
    const std::optional<double> number = NumberFor(value);
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

bool KeepsNumber(const Value& value, FieldType type) {
    const std::optional<std::int64_t> number = WholeNumberOf(value);
    if (!number) return !IsNumeric(value);
    const std::optional<Value> fitted = Fitted(value, type);
    if (!fitted) return true;  // which the column refuses anyway
    if (const std::string* text = fitted->AsText()) return *text == std::to_string(*number);
    // The engine keeps the floating-point number alone.
    if (const double* floating = fitted->AsFloating()) return Value(*floating).Whole() == number;
    return fitted->Whole() == number;
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

}  // namespace platform::database
