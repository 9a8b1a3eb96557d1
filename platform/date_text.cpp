#include "platform/date_text.h"

#include <algorithm>
#include <array>

#include "platform/error.h"
#include "platform/text.h"

namespace platform {
namespace {

constexpr std::size_t kDateLength = 10;
constexpr std::size_t kDateTimeLength = 19;

void AppendPadded(std::string& text, int number, std::size_t count) {
    const std::string digits = std::to_string(number);
    text.append(count > digits.size() ? count - digits.size() : 0, '0').append(digits);
}

void AppendDate(std::string& text, const DateTime& date) {
    AppendPadded(text, date.year, 4);
    AppendPadded(text += '-', date.month, 2);
    AppendPadded(text += '-', date.day, 2);
}

void AppendTime(std::string& text, const DateTime& moment) {
    AppendPadded(text, moment.hour, 2);
    AppendPadded(text += ':', moment.minute, 2);
    AppendPadded(text += ':', moment.second, 2);
}

// The number that exactly these digits spell, -1 where one of them is no digit.
int NumberAt(std::string_view text, std::size_t position, std::size_t count) {
    int number = 0;
    for (const char digit : text.substr(position, count)) {
        if (digit < '0' || digit > '9') return -1;
        number = number * 10 + (digit - '0');
    }
    return number;
}

bool HasTimeShape(std::string_view text) {
    return (text[10] == ' ' || text[10] == 'T') && text[13] == ':' && text[16] == ':';
}

[[noreturn]] void ThrowNoDate(std::string_view text) {
    throw RuntimeError(error_number::kTypeMismatch,
                       "Type mismatch: \"" + std::string(text) + "\" is no date");
}

}  // namespace

std::string IsoDate(const DateTime& date) {
    std::string text;
    AppendDate(text, date);
    return text;
}

std::string IsoDateTime(const DateTime& moment, char mark) {
    std::string text;
    text.reserve(kDateTimeLength);
    AppendDate(text, moment);
    AppendTime(text += mark, moment);
    return text;
}

std::optional<DateTime> ParseIsoDate(std::string_view text) {
    const bool timed = text.size() == kDateTimeLength;
    if (!timed && text.size() != kDateLength) return std::nullopt;
    if (text[4] != '-' || text[7] != '-') return std::nullopt;
    if (timed && !HasTimeShape(text)) return std::nullopt;

    const std::array parts = {NumberAt(text, 0, 4),
                              NumberAt(text, 5, 2),
                              NumberAt(text, 8, 2),
                              timed ? NumberAt(text, 11, 2) : 0,
                              timed ? NumberAt(text, 14, 2) : 0,
                              timed ? NumberAt(text, 17, 2) : 0};
    if (std::ranges::any_of(parts, [](int part) { return part < 0; })) return std::nullopt;
    const DateTime moment{static_cast<std::int16_t>(parts[0]), static_cast<std::int8_t>(parts[1]),
                          static_cast<std::int8_t>(parts[2]),  static_cast<std::int8_t>(parts[3]),
                          static_cast<std::int8_t>(parts[4]),  static_cast<std::int8_t>(parts[5])};
    if (!IsValid(moment)) return std::nullopt;
    return moment;
}

std::string ShortDateText(const DateTime& date) {
    std::string text;
    AppendPadded(text, date.day, 2);
    AppendPadded(text += '.', date.month, 2);
    AppendPadded(text += '.', date.year, 4);
    return text;
}

std::string DateTimeText(const DateTime& moment) {
    std::string text = ShortDateText(moment);
    AppendTime(text += ' ', moment);
    return text;
}

DateTime ToDate(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    const bool shaped = trimmed.size() == 10 && (trimmed[2] == '.' || trimmed[2] == '/') &&
                        trimmed[5] == trimmed[2];
    if (!shaped) ThrowNoDate(text);
    DateTime date;
    date.day = static_cast<std::int8_t>(NumberAt(trimmed, 0, 2));
    date.month = static_cast<std::int8_t>(NumberAt(trimmed, 3, 2));
    date.year = static_cast<std::int16_t>(NumberAt(trimmed, 6, 4));
    if (!IsValid(date)) ThrowNoDate(text);
    return date;
}

}  // namespace platform
