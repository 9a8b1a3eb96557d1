// The last step of a receipt's document: its payments.
#pragma once

#include <cstdint>

#include "sap/sale_lines.h"
#include "sap/transfer_context.h"

namespace sap {

// Adds the receipt's payments up, where it has item lines, and books them against SalesDocument
// where the view of them still stands on a record.
// kept: no-payment-booked. After the walk it does not, and without the walk the total is 0.
void BookReceiptPayments(const TransferContext& context, const SaleLines& saleLines,
                         std::int16_t saleNumber, long itemLines);

}  // namespace sap
