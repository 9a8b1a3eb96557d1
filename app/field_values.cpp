#include "app/field_values.h"

#include "platform/date_text.h"
#include "platform/norwegian.h"
#include "platform/text.h"

namespace app {

using platform::Mid;

std::string NzText(const platform::Value& value) {
    const std::string text = platform::ToText(value);
    if (platform::Trim(text).empty()) return " ";  // kept: blank-for-nothing. Never empty.
    return std::string(platform::TrimLeft(text));
}

platform::Value NzNumber(const platform::Value& value) {
    if (!value.IsNull() && platform::IsNumeric(value)) return value;
    return 0;
}

std::string DateToYmd(const platform::DateTime& date) {
    return std::to_string(date.year) + platform::Digits(date.month, 2) +
           platform::Digits(date.day, 2);
}

std::string YmdToDateText(std::int32_t ymd) {
    if (ymd <= 10000000) return {};
    const std::string digits = std::to_string(ymd);
    const std::string dayFirst =
        Mid(digits, 7, 2) + "/" + Mid(digits, 5, 2) + "/" + Mid(digits, 1, 4);
    return platform::ShortDateText(platform::ToDate(dayFirst));
}

}  // namespace app
