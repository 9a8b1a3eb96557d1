#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/error.h"
#include "platform/text.h"

namespace platform {

namespace {

constexpr int kSignificantDigits = 15;

// A number as 0.digits * 10^exponent, without zeros at the ends of the digits.
struct Decimal {
    bool negative = false;
    std::string digits;  // empty for zero
    int exponent = 0;
};

// To 15 significant digits.
Decimal DecimalOf(double number) {
    std::array<char, 40> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                       std::chars_format::scientific, kSignificantDigits - 1);
    const std::string_view text(buffer.data(), written.ptr);
    const std::size_t mark = text.find('e');

    Decimal decimal;
    decimal.negative = text.front() == '-';
    for (const char c : text.substr(0, mark)) {
        if (c >= '0' && c <= '9') decimal.digits += c;
    }
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    std::string_view exponent = text.substr(mark + 1);
    if (exponent.front() == '+') exponent.remove_prefix(1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.exponent);
    ++decimal.exponent;
    return decimal;
}

std::string Positional(const Decimal& decimal) {
    const auto count = static_cast<int>(decimal.digits.size());
    if (decimal.exponent <= 0) {
        return "0," + std::string(static_cast<std::size_t>(-decimal.exponent), '0') +
               decimal.digits;
    }
    if (decimal.exponent >= count) {
        return decimal.digits +
               std::string(static_cast<std::size_t>(decimal.exponent - count), '0');
    }
    const auto whole = static_cast<std::size_t>(decimal.exponent);
    return decimal.digits.substr(0, whole) + "," + decimal.digits.substr(whole);
}

std::string Exponential(const Decimal& decimal) {
    const int exponent = decimal.exponent - 1;
    std::string text = decimal.digits.substr(0, 1);
    if (decimal.digits.size() > 1) text += "," + decimal.digits.substr(1);
    const std::string power = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "E-" : "E+") + (power.size() < 2 ? "0" : "") + power;
}

// One more in the last place of a run of digits; it grows by one digit on overflow.
void Increment(std::string& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    digits.insert(digits.begin(), '1');
}

// The number in hundredths, as digits, halves away from zero.
std::string HundredthsOf(const Decimal& decimal) {
    if (decimal.digits.empty()) return "0";
    const int kept = decimal.exponent + 2;
    if (kept < 0) return "0";
    std::string digits = decimal.digits;
    const auto keep = static_cast<std::size_t>(kept);
    if (digits.size() <= keep) {
        digits.append(keep - digits.size(), '0');
    } else {
        const bool up = digits[keep] >= '5';
        digits.resize(keep);
        if (up) Increment(digits);
    }
    return digits;
}

std::string PointTextOf(double number) {
    const Decimal decimal = DecimalOf(number);
    std::string digits = HundredthsOf(decimal);
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
    digits.insert(digits.size() - 2, ".");
    return (decimal.negative && !isZero ? "-" : "") + digits;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t DigitsFrom(std::string_view text, std::size_t position) {
    std::size_t end = position;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    return end - position;
}

// The text in the form that from_chars reads, if it spells a number.
std::optional<std::string> PlainNumber(std::string_view text) {
    text = Trim(text);
    std::string plain;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
        if (text[at] == '-') plain = "-";
        ++at;
    }
    const std::size_t whole = DigitsFrom(text, at);
    plain += whole == 0 ? "0" : text.substr(at, whole);
    at += whole;
    std::size_t fraction = 0;
    if (at < text.size() && (text[at] == ',' || text[at] == '.')) {
        ++at;
        fraction = DigitsFrom(text, at);
        if (fraction > 0) plain += "." + std::string(text.substr(at, fraction));
        at += fraction;
    }
    if (whole + fraction == 0) return std::nullopt;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        ++at;
        plain += "e";
        if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
            if (text[at] == '-') plain += "-";
            ++at;
        }
        const std::size_t exponent = DigitsFrom(text, at);
        if (exponent == 0) return std::nullopt;
        plain += text.substr(at, exponent);
        at += exponent;
    }
    if (at != text.size()) return std::nullopt;
    return plain;
}

// Whether a number in that form which no double holds is too small for one, and not too large: by
// the distance of its first digit from the decimal mark, and the exponent.
bool IsTooSmall(std::string_view plain) {
    const std::size_t mark = std::min(plain.find('e'), plain.size());
    const std::size_t point = std::min(plain.find('.'), mark);
    const std::size_t first = plain.find_first_of("123456789");
    int exponent = 0;
    if (mark < plain.size()) {
        const std::string_view digits = plain.substr(mark + 1);
        const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (result.ec != std::errc{}) return digits.front() == '-';
    }
    return static_cast<long>(point) + exponent < static_cast<long>(first);
}

// All digits of a number in that form; nothing where its exponent is beyond all numbers.
std::optional<Decimal> DecimalOf(std::string_view plain) {
    Decimal decimal;
    decimal.negative = plain.starts_with('-');
    if (decimal.negative) plain.remove_prefix(1);
    const std::size_t mark = std::min(plain.find('e'), plain.size());
    if (mark < plain.size()) {
        const std::string_view power = plain.substr(mark + 1);
        const auto result =
            std::from_chars(power.data(), power.data() + power.size(), decimal.exponent);
        constexpr int kBeyond = 1'000'000;
        if (result.ec != std::errc{} || std::abs(decimal.exponent) > kBeyond) return std::nullopt;
    }
    const std::size_t point = std::min(plain.find('.'), mark);
    decimal.digits = plain.substr(0, point);
    if (point < mark) decimal.digits += plain.substr(point + 1, mark - point - 1);
    const std::size_t zeros = std::min(decimal.digits.find_first_not_of('0'), point);
    decimal.digits.erase(0, zeros);
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    decimal.exponent += static_cast<int>(point - zeros);
    return decimal;
}

}  // namespace

std::string NumberText(double number) {
    if (!std::isfinite(number)) return std::isnan(number) ? "NaN" : (number < 0 ? "-INF" : "INF");
    const Decimal decimal = DecimalOf(number);
    if (decimal.digits.empty()) return "0";
    const int exponent = decimal.exponent - 1;
    const bool positional = exponent >= -4 && exponent < kSignificantDigits;
    return (decimal.negative ? "-" : "") +
           (positional ? Positional(decimal) : Exponential(decimal));
}

std::optional<double> ParseNumber(std::string_view text) {
    const std::optional<std::string> plain = PlainNumber(text);
    if (!plain) return std::nullopt;
    double number = 0;
    const char* end = plain->data() + plain->size();
    const std::from_chars_result result = std::from_chars(plain->data(), end, number);
    if (result.ec == std::errc::result_out_of_range) {
        if (!IsTooSmall(*plain)) return std::nullopt;
        return 0.0;
    }
    return number;
}

std::optional<std::int64_t> ParseWholeNumber(std::string_view text) {
    const std::optional<std::string> plain = PlainNumber(text);
    const std::optional<Decimal> decimal = plain ? DecimalOf(*plain) : std::nullopt;
    if (!decimal) return std::nullopt;
    if (decimal->digits.empty()) return 0;
    const auto count = static_cast<int>(decimal->digits.size());
    constexpr int kMostDigits = std::numeric_limits<std::int64_t>::digits10 + 1;
    if (decimal->exponent < count || decimal->exponent > kMostDigits) return std::nullopt;

    std::string digits = (decimal->negative ? "-" : "") + decimal->digits;
    digits.append(static_cast<std::size_t>(decimal->exponent - count), '0');
    std::int64_t whole = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), whole);
    if (result.ec != std::errc{}) return std::nullopt;
    return whole;
}

std::optional<TwoDecimals> TwoDecimals::Of(double number) {
    if (!std::isfinite(number)) {
        throw RuntimeError(error_number::kOverflow,
                           "Overflow: " + NumberText(number) + " is no amount");
    }
    std::string text = PointTextOf(number);
    const std::optional<double> rounded = ParseNumber(text);
    if (!rounded) return std::nullopt;
    return TwoDecimals(std::move(text), *rounded);
}

std::string TwoDecimals::CommaText() const {
    std::string text = pointText_;
    text[text.size() - 3] = ',';
    return text;
}

}  // namespace platform
