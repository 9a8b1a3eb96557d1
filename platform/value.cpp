#include "platform/value.h"

namespace platform {

namespace {

bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int year, int month) {
    if (month == 2) return IsLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
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

}  // namespace platform
