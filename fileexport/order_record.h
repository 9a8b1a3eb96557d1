// The lines of the order file: what an "H" line says of a sale, and an "L" line of a sale line.
// Pure: reads what it is given and writes nothing.
#pragma once

#include <optional>
#include <string>

#include "platform/number_text.h"
#include "platform/value.h"
#include "store/options.h"
#include "store/sale.h"
#include "store/sale_line.h"

namespace fileexport {

[[nodiscard]] bool IsOrder(const platform::Value& salesType);

[[nodiscard]] std::string HeadLine(const store::Sale& sale, const store::Options& options);

// A price without VAT from one with it; null for a null price. `vatRate` is per cent; -100 is error
// 11, or 6 for a price of 0.
[[nodiscard]] platform::Value NetPrice(const platform::Value& price, double vatRate);

[[nodiscard]] std::string OrderLine(const store::SaleLine& line, const platform::Value& netPrice);

// Two decimals behind a decimal point; "0" where there is none.
[[nodiscard]] std::string AmountText(const std::optional<platform::TwoDecimals>& amount);

}  // namespace fileexport
