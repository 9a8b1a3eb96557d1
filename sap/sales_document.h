// One sale as one SAP document: an invoice or credit note, an order, a delivery or a return.
#pragma once

#include <cstdint>

#include "sap/sale_lines.h"
#include "sap/transfer_context.h"

namespace sap {

// Turns the sale on which SalesRecordset stands into a document and adds it. `receiptTotal` is the
// sum of the sale's item lines; its sign and the sale's type choose the kind of document. A failure
// is told to the operator and flags the data set.
void CreateSalesDocument(const TransferContext& context, const SaleLines& saleLines,
                         std::int16_t saleNumber, std::int16_t saleType, double receiptTotal);

}  // namespace sap
