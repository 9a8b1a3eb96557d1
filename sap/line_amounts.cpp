#include "sap/line_amounts.h"

#include <cmath>
#include <string>

#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/text.h"

namespace sap {

using platform::Value;

double LineQuantity(const platform::Recordset& line, bool isCredit) {
    return isCredit ? NegatedQuantity(line) : platform::RoundTwoDecimals(line.Get("Qty"));
}

double NegatedQuantity(const platform::Recordset& line) {
    const Value quantity = line.Get("Qty");
    return platform::RoundTwoDecimals(quantity.IsNull() ? Value()
                                                        : Value(-platform::ToDouble(quantity)));
}

std::optional<double> UnitPrice(const platform::Recordset& line) {
    const double quantity = platform::ToDouble(line.Get("Qty"));
    if (quantity == 0) return std::nullopt;
    const double unit = platform::ToDouble(line.Get("Amount")) / quantity;
    if (!std::isfinite(unit)) {
        throw platform::RuntimeError(platform::error_number::kOverflow, "Overflow");
    }
    return unit;
}

double LineDiscount(const platform::Recordset& line) {
    const std::string discount = platform::ToText(line.Get("Discount"));
    return platform::RoundTwoDecimals(platform::Trim(discount));
}

}  // namespace sap
