// The last step of a receipt's document: its payments.
#pragma once

#include <cstdint>

#include "sap/sale_lines.h"
#include "sap/transfer_context.h"

namespace sap {

// Adds the receipt's payments up, and books them against SalesDocument where the view of them still
// stands on a record. It never does after the walk, and without the walk the total is 0: so no
// payment of an ordinary receipt is booked. Kept on purpose.
void BookReceiptPayments(const TransferContext& context, const SaleLines& saleLines,
                         std::int16_t saleNumber);

}  // namespace sap
