// Amounts as sums count them: in whole 1/10000, as currency does, so that 0.10 + 0.20 - 0.30 is 0.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>

namespace platform::database {

inline constexpr std::int64_t kUnitsOfOne = 10000;

// Nothing where the count does not fit.
[[nodiscard]] inline std::optional<std::int64_t> AmountUnits(double amount) {
    constexpr double kEnd = 9223372036854775808.0;  // one past the largest count
    const double rounded = std::nearbyint(amount * static_cast<double>(kUnitsOfOne));
    if (!(rounded >= -kEnd && rounded < kEnd)) return std::nullopt;
    return static_cast<std::int64_t>(rounded);
}

[[nodiscard]] inline double AmountOfUnits(std::int64_t units) {
    return static_cast<double>(units) / static_cast<double>(kUnitsOfOne);
}

}  // namespace platform::database
