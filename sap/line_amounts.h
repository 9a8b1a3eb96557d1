// The amounts of a sale's line as a document takes them: each as "###0.00" shows it.
#pragma once

#include <optional>

#include "platform/database/recordset.h"

namespace sap {

// The quantity, with the other sign on a credit note or return. A null quantity is error 13.
[[nodiscard]] double LineQuantity(const platform::Recordset& line, bool isCredit);
[[nodiscard]] double NegatedQuantity(const platform::Recordset& line);

// Amount by quantity, not yet rounded; none for a quantity of 0. A null amount is error 94.
[[nodiscard]] std::optional<double> UnitPrice(const platform::Recordset& line);

// Per cent. A null discount is error 13.
[[nodiscard]] double LineDiscount(const platform::Recordset& line);

}  // namespace sap
