#include "sap/sales_document.h"

#include "platform/norwegian.h"
#include "sap/order_document.h"
#include "sap/receipt_document.h"
#include "store/transaction_types.h"

namespace sap {

// kept: sale-number-of-16-bits. A higher number is error 6, and so is a higher type.
// kept: quietly-nothing. Other types, numbers below 1 and sales without goods become nothing.
void CreateSalesDocument(const TransferContext& context, const SaleLines& saleLines,
                         const store::Sale& sale, double receiptTotal, long itemLines) {
    const std::int16_t number = platform::ToInt16(sale.ID());
    const std::int16_t type = platform::ToInt16(sale.SalesType());
    const SaleToPost toPost{sale, number, type, receiptTotal <= 0};  // kept: zero-is-credit
    if (type == store::sales_type::kReceipt) {
        CreateReceiptDocument(context, saleLines, toPost, itemLines);
    } else if (type == store::sales_type::kOrder) {
        CreateOrderDocument(context, saleLines, toPost);
    }
}

}  // namespace sap
