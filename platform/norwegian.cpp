#include "platform/norwegian.h"

#include <cmath>
#include <limits>

#include "platform/date_text.h"
#include "platform/error.h"
#include "platform/text.h"

namespace platform {

namespace {

// Days since 30.12.1899 with the time of day as the fraction.
double DayNumber(const DateTime& moment) {
    const int year = moment.month <= 2 ? moment.year - 1 : moment.year;
    const int era = year / 400;
    const int yearOfEra = year - era * 400;
    const int shifted = moment.month + (moment.month > 2 ? -3 : 9);
    const int dayOfYear = (153 * shifted + 2) / 5 + moment.day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    constexpr int kDayOf1899Dec30 = 693899;
    const int day = era * 146097 + dayOfEra - kDayOf1899Dec30;
    const double time = (moment.hour * 3600 + moment.minute * 60 + moment.second) / 86400.0;
    return day < 0 ? day - time : day + time;
}

std::string Quoted(const Value& value) {
    return "\"" + ToText(value) + "\"";
}

[[noreturn]] void ThrowNoNumber(const Value& value) {
    throw RuntimeError(error_number::kTypeMismatch,
                       "Type mismatch: " + Quoted(value) + " is no number");
}

template <class Integer>
Integer ToInteger(const Value& value) {
    const double rounded = std::nearbyint(ToDouble(value));  // halves to even
    const bool fits = rounded >= std::numeric_limits<Integer>::min() &&
                      rounded <= std::numeric_limits<Integer>::max();
    if (!fits) {  // so is what is no number, which compares as neither
        throw RuntimeError(error_number::kOverflow,
                           "Overflow: " + Quoted(value) + " does not fit a whole number of " +
                               std::to_string(8 * sizeof(Integer)) + " bits");
    }
    return static_cast<Integer>(rounded);
}

}  // namespace

std::string ToText(const Value& value) {
    if (const bool* truth = value.AsBoolean()) return *truth ? "True" : "False";
    if (const std::int64_t* whole = value.AsWhole()) return std::to_string(*whole);
    if (const double* number = value.AsFloating()) return NumberText(*number);
    if (const std::string* text = value.AsText()) return *text;
    if (const DateTime* moment = value.AsDate()) {
        const bool midnight = moment->hour == 0 && moment->minute == 0 && moment->second == 0;
        return midnight ? ShortDateText(*moment) : DateTimeText(*moment);
    }
    return {};
}

std::string TrimmedText(const Value& value) {
    const std::string text = ToText(value);
    return std::string(Trim(text));
}

std::optional<double> NumberOf(const Value& value) {
    if (const bool* truth = value.AsBoolean()) return *truth ? -1 : 0;
    if (const std::int64_t* whole = value.AsWhole()) return static_cast<double>(*whole);
    if (const double* number = value.AsFloating()) return *number;
    if (const DateTime* moment = value.AsDate()) return DayNumber(*moment);
    if (const std::string* text = value.AsText()) return ParseNumber(*text);
    return std::nullopt;
}

std::optional<std::int64_t> WholeNumberOf(const Value& value) {
    if (const std::string* text = value.AsText()) return ParseWholeNumber(*text);
    return value.Whole();
}

bool IsNumeric(const Value& value) {
    return value.AsDate() == nullptr && NumberOf(value).has_value();
}

double ToDouble(const Value& value) {
    if (value.IsNull()) throw RuntimeError(error_number::kInvalidUseOfNull, "Invalid use of Null");
    const std::optional<double> number = NumberOf(value);
    if (!number) ThrowNoNumber(value);
    return *number;
}

std::int16_t ToInt16(const Value& value) {
    return ToInteger<std::int16_t>(value);
}
std::int32_t ToInt32(const Value& value) {
    return ToInteger<std::int32_t>(value);
}

std::optional<TwoDecimals> ToTwoDecimals(const Value& value) {
    const std::optional<double> number = NumberOf(value);
    return number ? TwoDecimals::Of(*number) : std::nullopt;
}

double RoundToTwoDecimals(const Value& value) {
    if (const std::optional<TwoDecimals> rounded = ToTwoDecimals(value)) return rounded->Number();
    ThrowNoNumber(value);
}

}  // namespace platform
