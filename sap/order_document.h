// An order-type sale as an order or a delivery or, where its total is 0 or below, a return.
#pragma once

#include "sap/document.h"
#include "sap/sale_lines.h"

namespace sap {

// Adds the document of the sale's item lines; a sale without any has no document.
void CreateOrderDocument(const TransferContext& context, const SaleLines& saleLines,
                         const SaleToPost& order);

}  // namespace sap
