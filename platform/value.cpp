#include "platform/value.h"

#include <compare>
#include <optional>

#include "platform/norwegian.h"
#include "platform/text.h"

namespace platform {

namespace {

bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int year, int month) {
    if (month == 2) return IsLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

template <class T>
Ordering OrderingOf(const T& left, const T& right) {
    if (left < right) return Ordering::Less;
    return right < left ? Ordering::Greater : Ordering::Equal;
}

std::optional<double> NumberOf(const Value& value) {
    if (const std::string* text = value.AsText()) return ParseNumber(*text);
    return ToDouble(value);
}

}  // namespace

bool IsValid(const DateTime& moment) {
    return moment.year >= 100 && moment.year <= 9999 && moment.month >= 1 && moment.month <= 12 &&
           moment.day >= 1 && moment.day <= DaysInMonth(moment.year, moment.month) &&
           moment.hour >= 0 && moment.hour <= 23 && moment.minute >= 0 && moment.minute <= 59 &&
           moment.second >= 0 && moment.second <= 59;
}

void Value::AssignText(std::string_view text) {
    if (auto* held = std::get_if<std::string>(&data_)) {
        held->assign(text);
    } else {
        data_.emplace<std::string>(text);
    }
}

Ordering Compare(const Value& left, const Value& right) {
    if (left.IsNull() || right.IsNull()) return Ordering::Unordered;
    if (left.AsText() && right.AsText()) {
        return OrderingOf(Upper(*left.AsText()), Upper(*right.AsText()));
    }
    if (left.AsDate() && right.AsDate()) return OrderingOf(*left.AsDate(), *right.AsDate());
    if (left.AsWhole() && right.AsWhole()) return OrderingOf(*left.AsWhole(), *right.AsWhole());

    const std::optional<double> leftNumber = NumberOf(left);
    const std::optional<double> rightNumber = NumberOf(right);
    if (!leftNumber || !rightNumber) return Ordering::Unordered;
    return OrderingOf(*leftNumber, *rightNumber);
}

bool Equals(const Value& left, const Value& right) {
    return Compare(left, right) == Ordering::Equal;
}

}  // namespace platform
