#include "control/sap_check.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "control/row.h"
#include "control/values.h"
#include "platform/error.h"
#include "sap/document_head.h"
#include "sap/document_line.h"
#include "sap/sale_lines.h"
#include "sap/transfer_driver.h"
#include "store/transaction_types.h"

namespace control {

using platform::RuntimeError;
using platform::Value;
using sap::LineKind;

namespace {

constexpr double kMostNumber = std::numeric_limits<std::int16_t>::max();

bool IsSaleNumber(const Value& id) {
    const std::optional<double> number = platform::NumberOf(id);
    return number && *number >= 1 && *number <= kMostNumber && std::trunc(*number) == *number;
}

// The customer and the account of a line depend on nothing of these.
constexpr std::int16_t kAnyNumber = 1;
constexpr bool kIsCredit = false;

}  // namespace

void LineFilter::Begin(const std::vector<std::string>& names) {
    places_.clear();
    for (const platform::database::FilterTerm& term : terms_)
        places_.push_back(ColumnPlace(names, term.field));
}

bool LineFilter::Takes(const std::vector<Value>& row) const {
    for (std::size_t i = 0; i < terms_.size(); ++i) {
        if (!platform::database::Passes(terms_[i], ValueAt(row, places_[i]))) return false;
    }
    return true;
}

SapCheck::SapCheck(const Shop& shop, Findings& findings)
    : shop_(shop),
      findings_(findings),
      company_(shop),
      documentsAreWanted_(sap::DocumentsAreWanted(shop.Settings())),
      items_(sap::FilterOf(LineKind::Items)),
      itemsButRounding_(sap::FilterOf(LineKind::ItemsButRounding)),
      paidInvoices_(sap::FilterOf(LineKind::InvoicePayments)) {}

void SapCheck::TakeNumber(const Value& id, const Place& place) {
    if (!documentsAreWanted_ || IsSaleNumber(id)) return;
    Place here = place;
    here.field = "ID";
    here.value = TextOf(id);
    findings_.Add("K208", here);
}

bool SapCheck::TakeCustomer(const store::Sale& sale, const SaleRecord& record) {
    if (!shop_.HasOptions() || record.Has(sale_flag::kNoDate)) return true;
    try {
        customerCode_ = sap::ReceiptHead(sale, kAnyNumber, shop_.Options()).cardCode;
    } catch (const RuntimeError&) {
        return true;  // what it can not read is found by the other rules
    }
    return company_.HasCustomer(customerCode_);
}

void SapCheck::BeginLines(const std::vector<std::string>& names) {
    items_.Begin(names);
    itemsButRounding_.Begin(names);
    paidInvoices_.Begin(names);
    quantity_ = ColumnPlace(names, "Qty");
    discount_ = ColumnPlace(names, "Discount");
}

void SapCheck::TakeLine(const FileRow& row, SaleRecord& sale, const Place& place) {
    if (items_.Takes(row.values)) sale.flags |= sale_flag::kItems;
    if (paidInvoices_.Takes(row.values)) sale.flags |= sale_flag::kPaidInvoice;
    const bool isOnReceipt =
        sale.type == store::sales_type::kReceipt && itemsButRounding_.Takes(row.values);
    const bool isOnOrder = sale.type == store::sales_type::kOrder && items_.Takes(row.values);
    if (!documentsAreWanted_ || !(isOnReceipt || isOnOrder) || !IsSaleNumber(sale.id)) return;
    sale.flags |= sale_flag::kDocumentLine;
    if (HasNumbers(row, place) && shop_.HasOptions()) TakeDocumentLine(row, place);
}

bool SapCheck::HasNumbers(const FileRow& row, const Place& place) {
    bool hasAll = true;
    const auto require = [&](const char* field, std::size_t column) {
        const Value& value = ValueAt(row.values, column);
        if (platform::NumberOf(value)) return;
        Place here = place;
        here.field = field;
        here.value = TextOf(value);
        findings_.Add("K305", here);
        hasAll = false;
    };
    require("Qty", quantity_);
    require("Discount", discount_);
    return hasAll;
}

void SapCheck::TakeDocumentLine(const FileRow& row, const Place& place) {
    static const Row kAnySale({});
    const RowView view = row.View();
    const store::SaleLine line(view);
    sap::DocumentLine values;
    try {
        values = sap::ReceiptLine(store::Sale(kAnySale), line, kIsCredit, shop_.Options());
    } catch (const RuntimeError&) {
        return;  // a null amount is told where the receipt is added up
    }
    const auto tell = [&](std::string_view code, const char* field, const std::string& value) {
        Place here = place;
        here.field = field;
        here.value = value;
        findings_.Add(code, here);
    };
    if (!company_.HasItem(values.itemCode)) tell("K503", "ProductID", values.itemCode);
    if (values.accountCode && !company_.HasAccount(*values.accountCode)) {
        tell("K504", "SalesAccount", *values.accountCode);
    }
    if (values.isPriceRefused) tell("K505", "Amount", platform::ToText(line.Amount()));
}

void SapCheck::CheckSale(const SaleRecord& sale, const std::string& customer) {
    const std::string id = std::to_string(sale.id);
    if (sale.Has(sale_flag::kPaidInvoice) && !sale.Has(sale_flag::kItems)) {
        findings_.Add("K501", {.sale = id});
    }
    if (sale.Has(sale_flag::kDocumentLine) && sale.Has(sale_flag::kNotInSap)) {
        findings_.Add("K502", {.sale = id, .field = "CustomerID", .value = customer});
    }
}

}  // namespace control
