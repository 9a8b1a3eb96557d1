#include "sap/document.h"

#include "platform/norwegian.h"

namespace sap {

using platform::sapdi::Documents;
using platform::sapdi::ObjectType;

namespace {

void WarnOfPrice(const TransferContext& context, const store::SaleLine& line,
                 std::string_view consequence) {
    context.Warn("Feil i prising. Pris kan ikke være mindre enn null. " + std::string(consequence) +
                 "\nBong = " + platform::ToText(line.SalesID()) +
                 ", Produkt = " + platform::ToText(line.ProductID()));
}

}  // namespace

void CreateDocument(const TransferContext& context, ObjectType type) {
    context.objects.SalesDocument =
        platform::sapdi::GetObject<Documents>(*context.objects.SAPCompany, type);
}

void CreateCustomerPartner(const TransferContext& context) {
    context.objects.CustomerPartner = platform::sapdi::GetObject<platform::sapdi::BusinessPartners>(
        *context.objects.SAPCompany, ObjectType::BusinessPartners);
}

void SetCustomerAndReferences(const TransferContext& context, const DocumentHead& head) {
    Documents& document = *context.objects.SalesDocument;
    document.SetCardCode(head.cardCode);
    document.SetCardName(head.cardName);
    document.SetNumAtCard(head.numAtCard);
    document.SetReference1(head.reference);
    document.SetReference2(head.reference);
}

void SetRemarks(const TransferContext& context, const DocumentHead& head) {
    Documents& document = *context.objects.SalesDocument;
    document.SetComments(head.comments);
    document.SetOwnReference(head.ownReference);
}

void FindCustomerPartner(const TransferContext& context) {
    const std::string cardCode = context.objects.SalesDocument->CardCode();
    (void)context.objects.CustomerPartner->GetByKey(cardCode);
}

void SetSalesPerson(const TransferContext& context, const DocumentHead& head) {
    if (!head.salesPersonCode) return;
    context.objects.SalesDocument->SetSalesPersonCode(*head.salesPersonCode);
}

void SetLine(const TransferContext& context, const store::SaleLine& line,
             const DocumentLine& values, std::string_view consequence) {
    platform::sapdi::DocumentLines& lines = context.objects.SalesDocument->Lines();
    lines.SetItemCode(values.itemCode);
    if (values.accountCode) lines.SetAccountCode(*values.accountCode);
    lines.SetProjectCode(values.projectCode);
    lines.SetCostingCode(values.costingCode);
    lines.SetItemDescription(values.itemDescription);
    lines.SetQuantity(values.quantity);
    if (values.isPriceRefused) WarnOfPrice(context, line, consequence);
    if (values.unitPrice) lines.SetUnitPrice(*values.unitPrice);
    lines.SetDiscountPercent(LineDiscount(line));
}

std::optional<std::int32_t> AddDocument(const TransferContext& context, const SaleToPost& sale,
                                        const std::string& failure) {
    Documents& document = *context.objects.SalesDocument;
    if (document.Add() != 0) {
        const std::string number = std::to_string(sale.number);
        context.Warn(failure + number);
        document.SaveXML("SAP_ERR_" + std::to_string(sale.type) + "_" + number + ".xml");
        context.DataSetHasErrors = true;
        return std::nullopt;
    }
    const std::int32_t key = platform::ToInt32(context.objects.SAPCompany->GetNewObjectKey());
    (void)document.GetByKey(key);  // kept: look-ups-unread
    return key;
}

}  // namespace sap
