#include "platform/value.h"

#include <cmath>

namespace platform {

namespace {

bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int year, int month) {
    if (month == 2) return IsLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

std::optional<std::int64_t> WholeOf(double number) {
    constexpr double kEnd = 9223372036854775808.0;  // one past the largest whole number
    if (!(number >= -kEnd && number < kEnd) || std::trunc(number) != number) return std::nullopt;
    return static_cast<std::int64_t>(number);
}

}  // namespace

bool IsValid(const DateTime& moment) {
    return moment.year >= 100 && moment.year <= 9999 && moment.month >= 1 && moment.month <= 12 &&
           moment.day >= 1 && moment.day <= DaysInMonth(moment.year, moment.month) &&
           moment.hour >= 0 && moment.hour <= 23 && moment.minute >= 0 && moment.minute <= 59 &&
           moment.second >= 0 && moment.second <= 59;
}

Value Value::FloatingOf(std::int64_t whole) {
    const auto number = static_cast<double>(whole);
    Value value(number);
    if (WholeOf(number) != whole) value.data_ = Floating{number, whole};
    return value;
}

std::optional<std::int64_t> Value::Whole() const {
    if (const bool* truth = AsBoolean()) return *truth ? -1 : 0;
    if (const std::int64_t* whole = AsWhole()) return *whole;
    const auto* floating = std::get_if<Floating>(&data_);
    if (floating == nullptr) return std::nullopt;
    return floating->whole ? floating->whole : WholeOf(floating->number);
}

void Value::AssignText(std::string_view text) {
    if (auto* held = std::get_if<std::string>(&data_)) {
        held->assign(text);
    } else {
        data_.emplace<std::string>(text);
    }
}

}  // namespace platform
