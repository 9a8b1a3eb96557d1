#include "sap/receipt_document.h"

#include "sap/payment_step.h"

namespace sap {

using platform::database::ClientRecordset;
using platform::sapdi::ObjectType;
using store::SaleLine;

namespace {

constexpr const char* kRoundingItemQuery = "SELECT * FROM OITM WHERE UPPER(ItemCode) = 'AVRUNDING'";

bool SapHasRoundingItem(const TransferContext& context) {
    platform::sapdi::Query& query = *context.objects.SAPQuery;
    query.DoQuery(kRoundingItemQuery);
    return query.QueryRecordCount() > 0;
}

void AddReceiptLine(const TransferContext& context, const SaleToPost& receipt, const SaleLine& line,
                    int& lineCounter) {
    const bool isRounding = IsRounding(line);
    // kept: rounding-never-arrives. The view of the lines leaves roundings out in any case.
    if (isRounding && !SapHasRoundingItem(context)) return;
    if (++lineCounter > 1) context.objects.SalesDocument->Lines().Add();
    const auto& lineOf = isRounding ? RoundingLine : ReceiptLine;
    SetLine(context, line, lineOf(receipt.sale, line, receipt.isCredit, context.Options),
            "Pris settes positiv og antallet negativt.");
}

void SetLines(const TransferContext& context, const SaleToPost& receipt, ClientRecordset& lines) {
    int lineCounter = 0;
    for (; !lines.IsEof(); lines.MoveNext())
        AddReceiptLine(context, receipt, SaleLine(lines), lineCounter);
}

// kept: printed-by-key. The number is compared with the key of the added document.
void MarkAsPrinted(const TransferContext& context, const SaleToPost& receipt, std::int32_t key) {
    const std::string table = receipt.isCredit ? "ORIN" : "OINV";
    context.objects.SAPQuery->DoQuery("UPDATE " + table +
                                      " SET Printed = 'Y' WHERE DocNum = " + std::to_string(key));
}

void SetHead(const TransferContext& context, const DocumentHead& head) {
    platform::sapdi::Documents& document = *context.objects.SalesDocument;
    SetCustomerAndReferences(context, head);
    document.SetDocDate(head.date);
    SetRemarks(context, head);
    FindCustomerPartner(context);
    document.SetTaxDate(head.date);
    SetSalesPerson(context, head);
}

void AddReceipt(const TransferContext& context, const SaleToPost& receipt, ClientRecordset& lines) {
    SetHead(context, ReceiptHead(receipt.sale, receipt.number, context.Options));
    SetLines(context, receipt, lines);
    const auto key = AddDocument(context, receipt, "Fikk ikke lagt til bong ");
    if (key) MarkAsPrinted(context, receipt, *key);
    ReportLastError(context, "Found error:");
}

}  // namespace

void CreateReceiptDocument(const TransferContext& context, const SaleLines& saleLines,
                           const SaleToPost& receipt, long itemLines) {
    CreateDocument(context, receipt.isCredit ? ObjectType::CreditNotes : ObjectType::Invoices);
    context.objects.SAPQuery = platform::sapdi::GetObject<platform::sapdi::Query>(
        *context.objects.SAPCompany, ObjectType::Recordset);
    CreateCustomerPartner(context);
    if (receipt.number <= 0) return;  // kept: quietly-nothing

    const auto lines = saleLines.Open(LineKind::ItemsButRounding, receipt.sale.ID());
    if (!lines->IsEof()) AddReceipt(context, receipt, *lines);
    BookReceiptPayments(context, saleLines, receipt.number, itemLines);
}

}  // namespace sap
