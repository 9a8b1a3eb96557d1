#include "sap/order_document.h"

#include "app/field_values.h"
#include "platform/comparison.h"

namespace sap {

using platform::database::ClientRecordset;
using platform::sapdi::DocumentLines;
using platform::sapdi::ObjectType;
using store::SaleLine;

namespace {

ObjectType KindOf(const TransferContext& context, const SaleToPost& order) {
    if (order.isCredit) return ObjectType::Returns;
    const bool wantsOrders = platform::Equals(app::NzNumber(context.AppSettings.SAPOrders), 1);
    return wantsOrders ? ObjectType::Orders : ObjectType::DeliveryNotes;
}

// kept: order-price-message. It promises 0,00, and the line gets the price without its minus.
void SetLines(const TransferContext& context, const SaleToPost& order, ClientRecordset& lines) {
    DocumentLines& documentLines = context.objects.SalesDocument->Lines();
    std::int32_t lineCounter = 0;
    for (; !lines.IsEof(); lines.MoveNext()) {
        const SaleLine line(lines);
        if (++lineCounter > 1) documentLines.Add();
        documentLines.SetCurrentLine(lineCounter - 1);
        SetLine(context, line, OrderLine(order.sale, line, order.isCredit, context.Options),
                "Pris settes til 0,00");
    }
}

void SetHead(const TransferContext& context, const DocumentHead& head) {
    platform::sapdi::Documents& document = *context.objects.SalesDocument;
    SetCustomerAndReferences(context, head);
    SetRemarks(context, head);
    document.SetDocDate(head.date);
    FindCustomerPartner(context);
    SetSalesPerson(context, head);
    document.SetTaxDate(head.date);
}

void AddOrder(const TransferContext& context, const SaleToPost& order, ClientRecordset& lines) {
    SetHead(context, OrderHead(order.sale, order.number, context.Options));
    SetLines(context, order, lines);
    (void)AddDocument(context, order, "Fikk ikke lagt til dokument ");
    ReportLastError(context, "Found error:");
}

}  // namespace

void CreateOrderDocument(const TransferContext& context, const SaleLines& saleLines,
                         const SaleToPost& order) {
    CreateDocument(context, KindOf(context, order));
    CreateCustomerPartner(context);
    if (order.number <= 0) return;  // kept: quietly-nothing

    const auto lines = saleLines.Open(LineKind::Items, order.sale.ID());
    if (!lines->IsEof()) AddOrder(context, order, *lines);
}

}  // namespace sap
