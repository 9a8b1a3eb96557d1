// Numbers and dates as Norwegian texts. The input is a text, and its first eight bytes are also
// taken as a floating-point number, a whole number and a date.

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include "platform/date_text.h"
#include "platform/norwegian.h"
#include "platform/text.h"
#include "tests/fuzz/fuzz_target.h"

using namespace platform;
using fuzz::ErrorNumberOf;
using fuzz::Require;

namespace {

// Beyond it the nearest text of 15 digits may be the text of no number any more.
constexpr double kLargest = 1.79769313486231e308;

std::string Replaced(std::string_view text, char from, char to) {
    std::string replaced(text);
    std::replace(replaced.begin(), replaced.end(), from, to);
    return replaced;
}

// The number as the C library reads it, which stays in the C locale here, out of the characters
// that a number has.
std::optional<double> ReferenceNumber(std::string_view text) {
    const std::string plain = Replaced(Trim(text), ',', '.');
    if (plain.empty() || plain.find_first_not_of("0123456789+-.eE") != std::string::npos) {
        return std::nullopt;
    }
    char* end = nullptr;
    const double number = std::strtod(plain.c_str(), &end);
    if (end != plain.c_str() + plain.size() || !std::isfinite(number)) return std::nullopt;
    return number;
}

// Empty where the value is no amount.
std::string CommaTextOf(const Value& value) {
    const std::optional<TwoDecimals> rounded = ToTwoDecimals(value);
    return rounded ? rounded->CommaText() : std::string();
}

void CheckText(std::string_view text) {
    const std::optional<double> number = ParseNumber(text);
    const Value value(text);
    Require(number == ReferenceNumber(text), "the number is the one that the C library reads");
    Require(IsNumeric(value) == number.has_value(), "IsNumeric agrees with ParseNumber");
    Require(
        ErrorNumberOf([&] { (void)ToDouble(value); }) == (number ? 0 : error_number::kTypeMismatch),
        "a text that is not numeric, and no other, is error 13");
    Require(ParseNumber(" " + std::string(text) + "  ") == number, "blanks around do not matter");
    Require(ParseNumber(Replaced(text, ',', '.')) == ParseNumber(Replaced(text, '.', ',')),
            "comma and point are the same");
    if (!number) {
        Require(!ToTwoDecimals(value), "a text that is not numeric is no amount");
        return;
    }
    Require(CommaTextOf(value) == CommaTextOf(*number),
            "a numeric text is formatted like its number");
}

// The hundredths of the 15 digits of a number that is not too large for that, halves away from 0.
std::int64_t ReferenceHundredths(double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.14e", std::fabs(number));
    std::string digits(text.data(), 16);
    digits.erase(1, 1);
    const std::int64_t all = std::stoll(digits);
    const int surplus = 12 - std::stoi(std::string(text.data() + 17));
    if (surplus > 17) return 0;
    std::int64_t step = 1;
    for (int i = 0; i < surplus; ++i)
        step *= 10;
    return (all + step / 2) / step;
}

void CheckTwoDecimals(double number) {
    const std::string text = CommaTextOf(number);
    if (std::fabs(number) < 1e12) {
        const std::int64_t hundredths = ReferenceHundredths(number);
        const std::string sign = number < 0 && hundredths != 0 ? "-" : "";
        Require(text == sign + std::to_string(hundredths / 100) + "," +
                            Digits(static_cast<int>(hundredths % 100), 2),
                "two decimals, halves away from zero");
    }
    Require(text.empty() || CommaTextOf(text) == text, "what has two decimals keeps them");
}

template <class Integer>
void CheckInteger(double number, Integer (*convert)(const Value&)) {
    Integer converted = 0;
    const int error = ErrorNumberOf([&] { converted = convert(number); });
    const double rounded = std::rint(number);
    const bool fits = rounded >= std::numeric_limits<Integer>::min() &&
                      rounded <= std::numeric_limits<Integer>::max();
    Require(error == (fits ? 0 : error_number::kOverflow), "what does not fit is error 6");
    Require(!fits || converted == rounded, "what fits is rounded to even");
}

void CheckNumber(double number) {
    CheckInteger(number, &ToInt16);
    CheckInteger(number, &ToInt32);
    const std::string text = NumberText(number);
    if (!std::isfinite(number)) {
        Require(!ParseNumber(text), "what is no number has the text of none");
        Require(ErrorNumberOf([&] { (void)ToTwoDecimals(number); }) == error_number::kOverflow,
                "what is no number is no amount");
        return;
    }
    CheckTwoDecimals(number);
    if (std::fabs(number) > kLargest) return;
    const std::optional<double> back = ParseNumber(text);
    Require(back.has_value(), "the text of a number is numeric");
    Require(std::fabs(*back - number) <= std::fabs(number) * 1e-14,
            "the text of a number gives it back to 15 digits");
    Require(NumberText(*back) == text, "and has the same text again");
}

void CheckWhole(std::int64_t whole) {
    Require(ParseNumber(ToText(whole)) == static_cast<double>(whole),
            "the text of a whole number gives it back");
    Require(ParseWholeNumber(ToText(whole)) == whole, "to its last digit");
}

void CheckDateText(std::string_view text) {
    DateTime date;
    const int error = ErrorNumberOf([&] { date = ToDate(text); });
    Require(error == 0 || error == error_number::kTypeMismatch, "what is no date is error 13");
    if (error != 0) return;
    Require(ShortDateText(date) == Replaced(Trim(text), '/', '.'), "a date has its text again");
}

void CheckDate(const DateTime& moment) {
    if (!IsValid(moment)) return;
    DateTime date = moment;
    date.hour = date.minute = date.second = 0;
    Require(ToDate(ShortDateText(moment)) == date, "the text of a date gives it back");
    using namespace std::chrono;
    const year_month_day day{year(moment.year), month(static_cast<unsigned>(moment.month)),
                             std::chrono::day(static_cast<unsigned>(moment.day))};
    const auto first = sys_days(year(1899) / 12 / 30);
    Require(ToDouble(date) == static_cast<double>((sys_days(day) - first).count()),
            "a date is its day number");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::TextOf(data, size);
    CheckText(text);
    CheckDateText(text);
    if (const std::optional<double> number = ParseNumber(text)) CheckNumber(*number);

    std::uint64_t bits = 0;
    for (const char byte : text.substr(0, sizeof bits))
        bits = bits << 8 | static_cast<unsigned char>(byte);
    const auto byte = [&](int place) { return static_cast<std::int8_t>(bits >> (8 * place)); };
    CheckNumber(std::bit_cast<double>(bits));
    CheckWhole(static_cast<std::int64_t>(bits));
    CheckNumber(static_cast<double>(static_cast<std::int64_t>(bits)) / 1000);
    CheckDate({static_cast<std::int16_t>(bits), byte(2), byte(3), byte(4), byte(5), byte(6)});
    return 0;
}
