#include "sap/sales_document.h"

#include <memory>
#include <optional>
#include <string>

#include "app/field_values.h"
#include "platform/norwegian.h"
#include "platform/text.h"
#include "sap/line_amounts.h"
#include "sap/payment_step.h"
#include "store/transaction_types.h"

namespace sap {

namespace {

using app::NzNumber;
using app::NzText;
using platform::Recordset;
using platform::Value;
using platform::sapdi::DocumentLines;
using platform::sapdi::Documents;
using platform::sapdi::ObjectType;
namespace trans_type = store::trans_type;

constexpr const char* kItemLinesButRounding =
    "TransType >= 1 and TransType <= 2 and ProductID <> 'Avrunding'";
constexpr const char* kRoundingItemQuery = "SELECT * FROM OITM WHERE UPPER(ItemCode) = 'AVRUNDING'";

constexpr std::size_t kProjectWidth = 8;
constexpr std::size_t kCustomerReferenceLength = 16;

std::string Trimmed(const std::string& text) {
    return std::string(platform::Trim(text));
}

// One sale on its way to one document. The receipt branch and the order branch stand side by side;
// what they share stands below them.
class SaleToDocument {
  public:
    SaleToDocument(const TransferContext& context, const SaleLines& saleLines,
                   std::int16_t saleNumber, std::int16_t saleType, double receiptTotal)
        : context_(context),
          saleLines_(saleLines),
          sale_(*context.runState.SalesRecordset),
          saleNumber_(saleNumber),
          saleType_(saleType),
          isCredit_(receiptTotal <= 0) {}

    void CreateFromReceipt() {
        CreateDocument(isCredit_ ? ObjectType::CreditNotes : ObjectType::Invoices);
        context_.objects.SAPQuery = Create<platform::sapdi::Query>(ObjectType::Recordset);
        CreateCustomerPartner();
        if (saleNumber_ <= 0) return;

        const auto lineView = saleLines_.Open(kItemLinesButRounding, sale_.Get("ID"));
        if (lineView->AbsolutePosition() >= 0) {
            SetReceiptHeader();
            for (; !lineView->IsEof(); lineView->MoveNext())
                AddReceiptLine(*lineView);
            if (AddDocument("Fikk ikke lagt til bong ")) MarkAsPrinted();
            ReportLastError(context_, "Found error:");
        }
        lineView->Close();
        BookReceiptPayments(context_, saleLines_, saleNumber_);
    }

    void CreateFromOrder() {
        CreateDocument(OrderDocument());
        CreateCustomerPartner();
        if (saleNumber_ <= 0) return;

        const auto lineView = saleLines_.Open(kItemLines, sale_.Get("ID"));
        if (lineView->AbsolutePosition() >= 0) {
            SetOrderHeader();
            for (; !lineView->IsEof(); lineView->MoveNext())
                AddOrderLine(*lineView);
            (void)AddDocument("Fikk ikke lagt til dokument ");
            ReportLastError(context_, "Found error:");
        }
        lineView->Close();
    }

  private:
    void SetReceiptHeader() {
        Documents& document = Document();
        SetCustomer(document);
        document.SetNumAtCard(SaleNumberText());
        SetReferences(document);
        document.SetDocDate(SaleDate());
        SetRemarks(document);
        FindCustomerPartner(document);
        document.SetTaxDate(SaleDate());
        SetSalesEmployee(document);
    }

    // No rounding line comes this far, for the filter compares without regard to case; the step
    // stands for a view that would let one through.
    void AddReceiptLine(const Recordset& line) {
        const bool isRounding =
            platform::Upper(platform::ToText(line.Get("ProductID"))) == "AVRUNDING";
        if (isRounding && !SapHasRoundingItem()) return;
        DocumentLines& lines = Document().Lines();
        if (++lineCounter_ > 1) lines.Add();
        lines.SetItemCode(isRounding ? "Avrunding" : NzText(line.Get("ProductID")));
        lines.SetAccountCode(AccountOf(line));
        SetProjectAndDepartment(lines);
        lines.SetItemDescription(isRounding ? "Avrunding fra Kassovia"
                                            : NzText(line.Get("Description")));
        SetReceiptAmounts(lines, line);
    }

    void SetReceiptAmounts(DocumentLines& lines, const Recordset& line) {
        lines.SetQuantity(LineQuantity(line, isCredit_));
        if (const std::optional<double> unit = UnitPrice(line)) {
            if (*unit >= 0) {
                lines.SetUnitPrice(platform::RoundTwoDecimals(*unit));
            } else {
                WarnOfPrice(line, "Pris settes positiv og antallet negativt.");
                lines.SetUnitPrice(platform::RoundTwoDecimals(-*unit));
                lines.SetQuantity(NegatedQuantity(line));
            }
        }
        lines.SetDiscountPercent(LineDiscount(line));
    }

    [[nodiscard]] bool SapHasRoundingItem() const {
        context_.objects.SAPQuery->DoQuery(kRoundingItemQuery);
        return context_.objects.SAPQuery->QueryRecordCount() > 0;
    }

    // A null account counts as one that is not 0.
    [[nodiscard]] std::string AccountOf(const Recordset& line) const {
        const Value account = line.Get("SalesAccount");
        return NzText(platform::Equals(account, 0) ? context_.Option("SalesAccount") : account);
    }

    // Deliberately by the key of the added document, not by its number.
    void MarkAsPrinted() {
        const std::string table = isCredit_ ? "ORIN" : "OINV";
        context_.objects.SAPQuery->DoQuery(
            "UPDATE " + table + " SET Printed = 'Y' WHERE DocNum = " + std::to_string(addedKey_));
    }

    [[nodiscard]] ObjectType OrderDocument() const {
        // A return is a return whether or not orders are wanted.
        if (isCredit_) return ObjectType::Returns;
        const bool wantsOrders = platform::Equals(NzNumber(context_.AppSettings.SAPOrders), 1);
        return wantsOrders ? ObjectType::Orders : ObjectType::DeliveryNotes;
    }

    void SetOrderHeader() {
        Documents& document = Document();
        SetCustomer(document);
        document.SetNumAtCard(
            platform::Left(Trimmed(NzText(sale_.Get("YourRef"))), kCustomerReferenceLength));
        SetReferences(document);
        SetRemarks(document);
        document.SetDocDate(SaleDate());
        FindCustomerPartner(document);
        SetSalesEmployee(document);
        document.SetTaxDate(SaleDate());
    }

    void AddOrderLine(const Recordset& line) {
        DocumentLines& lines = Document().Lines();
        if (++lineCounter_ > 1) lines.Add();
        lines.SetCurrentLine(lineCounter_ - 1);
        lines.SetItemCode(NzText(line.Get("ProductID")));
        SetProjectAndDepartment(lines);
        lines.SetItemDescription(NzText(line.Get("Description")));
        SetOrderAmounts(lines, line);
    }

    // The message promises a price of 0,00, the line gets the positive value of a negative one;
    // kept.
    void SetOrderAmounts(DocumentLines& lines, const Recordset& line) {
        lines.SetQuantity(LineQuantity(line, isCredit_));
        if (const std::optional<double> unit = UnitPrice(line)) {
            if (*unit > 0) {
                lines.SetUnitPrice(platform::RoundTwoDecimals(*unit));
            } else {
                WarnOfPrice(line, "Pris settes til 0,00");
                lines.SetUnitPrice(platform::RoundTwoDecimals(-*unit));
            }
        }
        lines.SetDiscountPercent(LineDiscount(line));
    }

    template <class Kind>
    [[nodiscard]] std::unique_ptr<Kind> Create(ObjectType type) const {
        return platform::sapdi::GetObject<Kind>(*context_.objects.SAPCompany, type);
    }

    void CreateDocument(ObjectType type) {
        context_.objects.SalesDocument = Create<Documents>(type);
    }

    void CreateCustomerPartner() {
        context_.objects.CustomerPartner =
            Create<platform::sapdi::BusinessPartners>(ObjectType::BusinessPartners);
    }

    [[nodiscard]] Documents& Document() const { return *context_.objects.SalesDocument; }
    [[nodiscard]] std::string SaleNumberText() const { return std::to_string(saleNumber_); }

    [[nodiscard]] platform::DateTime SaleDate() const {
        return platform::ToDate(app::YmdToDateText(platform::ToInt32(sale_.Get("SalesDate"))));
    }

    void SetCustomer(Documents& document) const {
        const std::string customerID = platform::ToText(sale_.Get("CustomerID"));
        document.SetCardCode(platform::Trim(customerID).empty()
                                 ? NzText(context_.Option("DefaultCustomerID"))
                                 : customerID);
        document.SetCardName(Trimmed(NzText(sale_.Get("CustomerName"))));
    }

    void SetReferences(Documents& document) const {
        document.SetReference1(SaleNumberText());
        document.SetReference2(SaleNumberText());
    }

    void SetRemarks(Documents& document) const {
        document.SetComments("Salg " + SaleNumberText() + " fra Kassovia.");
        document.SetOwnReference(Trimmed(NzText(sale_.Get("OurRef"))));
    }

    void FindCustomerPartner(const Documents& document) const {
        (void)context_.objects.CustomerPartner->GetByKey(document.CardCode());
    }

    void SetSalesEmployee(Documents& document) const {
        const Value seller = NzNumber(sale_.Get("SelBuy"));
        if (platform::Compare(seller, 0) != platform::Ordering::Greater) return;
        document.SetSalesPersonCode(platform::ToInt32(seller));
    }

    void SetProjectAndDepartment(DocumentLines& lines) const {
        lines.SetProjectCode(platform::PadRight(NzText(sale_.Get("Project")), kProjectWidth));
        lines.SetCostingCode(NzText(context_.Option("DeptNo")));
    }

    void WarnOfPrice(const Recordset& line, const std::string& consequence) const {
        context_.Warn("Feil i prising. Pris kan ikke være mindre enn null. " + consequence +
                      "\nBong = " + platform::ToText(line.Get("SalesID")) +
                      ", Produkt = " + platform::ToText(line.Get("ProductID")));
    }

    // Adds the document and loads it again under its key. A failure is told, leaves the document as
    // an XML file and flags the data set.
    [[nodiscard]] bool AddDocument(const std::string& failure) {
        if (Document().Add() != 0) {
            context_.Warn(failure + SaleNumberText());
            Document().SaveXML("SAP_ERR_" + std::to_string(saleType_) + "_" + SaleNumberText() +
                               ".xml");
            context_.runState.DataSetHasErrors = true;
            return false;
        }
        addedKey_ = platform::ToInt32(context_.objects.SAPCompany->GetNewObjectKey());
        (void)Document().GetByKey(addedKey_);
        return true;
    }

    const TransferContext& context_;
    const SaleLines& saleLines_;
    const Recordset& sale_;
    std::int16_t saleNumber_;
    std::int16_t saleType_;
    bool isCredit_;
    std::int32_t lineCounter_ = 0;
    std::int32_t addedKey_ = 0;
};

}  // namespace

void CreateSalesDocument(const TransferContext& context, const SaleLines& saleLines,
                         std::int16_t saleNumber, std::int16_t saleType, double receiptTotal) {
    if (saleType != store::sales_type::kReceipt && saleType != store::sales_type::kOrder) return;
    SaleToDocument sale(context, saleLines, saleNumber, saleType, receiptTotal);
    if (saleType == store::sales_type::kReceipt) {
        sale.CreateFromReceipt();
    } else {
        sale.CreateFromOrder();
    }
}

}  // namespace sap
