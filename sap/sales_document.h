// One sale as one SAP document: an invoice or credit note, an order, a delivery or a return.
#pragma once

#include <cstdint>

#include "sap/sale_lines.h"
#include "sap/transfer_context.h"
#include "store/sale.h"

namespace sap {

// `receiptTotal` is the sum of the sale's item lines, of which there are `itemLines`; its sign and
// the sale's type choose the kind of document. A failure is told and flags the data set.
void CreateSalesDocument(const TransferContext& context, const SaleLines& saleLines,
                         const store::Sale& sale, double receiptTotal, long itemLines);

}  // namespace sap
