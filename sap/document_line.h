// What a line of a document says of a sale line. Pure: reads what it is given.
#pragma once

#include <optional>
#include <string>

#include "store/options.h"
#include "store/sale.h"
#include "store/sale_line.h"

namespace sap {

struct DocumentLine {
    std::string itemCode;
    std::optional<std::string> accountCode;
    std::string projectCode;  // 8 characters and more
    std::string costingCode;  // the department
    std::string itemDescription;
    double quantity = 0;              // two decimals, as the price
    std::optional<double> unitPrice;  // never below 0; none for a quantity of 0
    bool isPriceRefused = false;      // the operator is to be told
};

[[nodiscard]] bool IsRounding(const store::SaleLine& line);

// The line on an invoice or a credit note, whose quantities have the other sign, and that of a
// rounding. A price below 0 is refused and made positive, and the quantity is then the receipt's
// with the other sign, on a credit note too. A null quantity is error 13, a null amount 94.
[[nodiscard]] DocumentLine ReceiptLine(const store::Sale& sale, const store::SaleLine& line,
                                       bool isCredit, const store::Options& options);
[[nodiscard]] DocumentLine RoundingLine(const store::Sale& sale, const store::SaleLine& line,
                                        bool isCredit, const store::Options& options);

// The line on an order, a delivery or a return, which names no account. A price of 0 or below is
// refused and loses its minus. Errors likewise.
[[nodiscard]] DocumentLine OrderLine(const store::Sale& sale, const store::SaleLine& line,
                                     bool isCredit, const store::Options& options);

// Per cent. A null discount is error 13. It stands apart for it is read when the operator has been
// told of a refused price.
[[nodiscard]] double LineDiscount(const store::SaleLine& line);

}  // namespace sap
