// Values of a day as the checks take them. Small and pure.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/database/amount_units.h"
#include "platform/norwegian.h"
#include "platform/value.h"

namespace control {

// The value's text; nothing for null.
[[nodiscard]] inline std::optional<std::string> TextOf(const platform::Value& value) {
    if (value.IsNull()) return std::nullopt;
    return platform::ToText(value);
}

// The whole number that a value is or spells, rounded as a column of whole numbers does.
[[nodiscard]] inline std::optional<std::int64_t> WholeOf(const platform::Value& value) {
    if (const std::int64_t* whole = value.AsWhole()) return *whole;
    const std::optional<double> number = platform::NumberOf(value);
    constexpr double kExact = 9007199254740992.0;
    if (!number || !(std::fabs(*number) < kExact)) return std::nullopt;
    return static_cast<std::int64_t>(std::nearbyint(*number));
}

// "12,50"
[[nodiscard]] inline std::string MoneyText(std::int64_t units) {
    return platform::TwoDecimals::Of(platform::database::AmountOfUnits(units))->CommaText();
}

[[nodiscard]] inline bool IsZeroMoney(std::int64_t units) {
    return MoneyText(units) == "0,00";
}

}  // namespace control
