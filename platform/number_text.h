// Numbers as Norwegian texts, texts as numbers, numbers with two decimals. Knows no other values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

// At most 15 significant digits, decimal comma, exponent form ("1E-05", "1,5E+15") where the
// exponent is below -4 or 15 and more.
[[nodiscard]] std::string NumberText(double number);

// The number that a text spells: blanks around it aside, an optional sign, digits with at most one
// decimal mark (comma or point), an optional exponent. Nothing where it spells none.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);

// The same where it is a whole number of 64 bits ("501", "501,00", "5.01E2"), to its last digit.
[[nodiscard]] std::optional<std::int64_t> ParseWholeNumber(std::string_view text);

// A number with two decimals, as amounts, prices and quantities are written and rounded: at least
// one digit before the decimal mark and two behind it, halves away from zero judged on the
// text of 15 significant digits (1.005 gives 1,01), no minus in front of 0,00.
class TwoDecimals {
  public:
    // Nothing where no double holds the rounded number; what is infinite or none is error 6.
    [[nodiscard]] static std::optional<TwoDecimals> Of(double number);

    [[nodiscard]] std::string CommaText() const;                               // "-1234,50"
    [[nodiscard]] const std::string& PointText() const { return pointText_; }  // "-1234.50"
    [[nodiscard]] double Number() const { return number_; }

  private:
    TwoDecimals(std::string pointText, double number)
        : pointText_(std::move(pointText)), number_(number) {}

    std::string pointText_;
    double number_;
};

}  // namespace platform
