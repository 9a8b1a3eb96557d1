// A receipt as an invoice or, where its total is 0 or below, a credit note.
#pragma once

#include "sap/document.h"
#include "sap/sale_lines.h"

namespace sap {

// Adds the document, marks it as printed, books the payments (see payment_step.h). `itemLines`
// counts the receipt's item lines with the rounding among them.
void CreateReceiptDocument(const TransferContext& context, const SaleLines& saleLines,
                           const SaleToPost& receipt, long itemLines);

}  // namespace sap
