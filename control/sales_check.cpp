#include "control/sales_check.h"

#include <limits>
#include <set>

#include "app/field_values.h"
#include "control/record_text.h"
#include "control/row.h"
#include "control/values.h"
#include "fileexport/order_record.h"
#include "fileexport/posting.h"
#include "platform/comparison.h"
#include "platform/date_text.h"
#include "platform/error.h"
#include "platform/text.h"
#include "store/transaction_types.h"

namespace control {

using platform::RuntimeError;
using platform::Value;

namespace {

constexpr std::size_t kMostDates = 30;
constexpr std::size_t kMostCustomersKept = 10000;
constexpr std::size_t kReferenceLength = 20;  // what a head of the order file takes of it

// The account of a customer, as the posting of a line on it has it; nothing where it is none.
std::optional<std::int32_t> AccountOf(const Shop& shop, const std::string& customer) {
    const Row sale({{"CustomerID", customer}});
    const Row line({{"TransType", store::trans_type::kCreditSale}, {"Amount", 0.0}});
    try {
        const auto posting = fileexport::PostingOfReceiptLine(
            store::Sale(sale), store::SaleLine(line), shop.Options());
        return posting ? posting->account : 0;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::optional<std::string> DateText(const Value& date) {
    try {
        return platform::ShortDateText(
            platform::ToDate(app::YmdToDateText(platform::ToInt32(date))));
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

bool HasCustomer(const Shop& shop, const std::string& id) {
    if (!shop.Databases().CustomersTable) return true;  // told as K006
    try {
        shop.Databases().CustomersTable->SetIndex("PrimaryKey");
        shop.Databases().CustomersTable->Seek(id);
        return !shop.Databases().CustomersTable->NoMatch();
    } catch (const RuntimeError& error) {
        if (error.Number() == platform::error_number::kNoSuchIndex) return true;
        throw;
    }
}

template <class Whole>
Whole Clamped(std::int64_t number) {
    constexpr std::int64_t kLeast = std::numeric_limits<Whole>::min();
    constexpr std::int64_t kMost = std::numeric_limits<Whole>::max();
    return static_cast<Whole>(std::min(std::max(number, kLeast), kMost));
}

}  // namespace

SalesCheck::SalesCheck(const Shop& shop, Findings& findings, SapCheck* sap)
    : shop_(shop),
      findings_(findings),
      sap_(sap),
      hasCustomer_([&shop](const std::string& id) { return HasCustomer(shop, id); }),
      accounts_([&shop](const std::string& id) { return AccountOf(shop, id); }),
      today_(platform::ToInt32(app::DateToYmd(shop.Outside().clock.Now()))) {
    if (shop.HasOptions()) {
        creditToOrderIsFalse_ = platform::Equals(shop.Options().CreditToOrder(), false);
    }
}

void SalesCheck::Begin(const std::vector<std::string>& names) {
    columns_ = {ColumnPlace(names, "ID"),          ColumnPlace(names, "SalesType"),
                ColumnPlace(names, "SalesStatus"), ColumnPlace(names, "SalesDate"),
                ColumnPlace(names, "CustomerID"),  ColumnPlace(names, "CustomerName"),
                ColumnPlace(names, "OurRef")};
}

void SalesCheck::Take(const FileRow& row) {
    const Value& id = ValueAt(row.values, columns_.id);
    const Place place{.sale = TextOf(id)};
    SaleRecord sale;
    if (row.isRefused) {
        // Its lines are not to be called lines without a sale.
        const auto number = WholeOf(id);
        sale.id = number.value_or(0);
        sale.flags = sale_flag::kIncomplete | sale_flag::kLines;
        if (number) sales_.Add(sale);
        return;
    }
    TakeNumber(row, sale, place);
    TakeType(ValueAt(row.values, columns_.type), sale, place);
    TakeStatus(ValueAt(row.values, columns_.status), sale, place);
    TakeDate(ValueAt(row.values, columns_.date), sale, place);
    TakeCustomer(row, sale, place);
    if (!shop_.UsesSap()) TakeTexts(row, place);
    if (!id.IsNull()) sales_.Add(sale);
}

void SalesCheck::TakeNumber(const FileRow& row, SaleRecord& sale, const Place& place) {
    const Value& id = ValueAt(row.values, columns_.id);
    sale.id = WholeOf(id).value_or(0);
    if (sap_ != nullptr) return sap_->TakeNumber(id, place);
    if (id.IsNull()) findings_.Add("K305", {.field = "ID"});
}

void SalesCheck::TakeType(const Value& value, SaleRecord& sale, const Place& place) {
    Place here = place;
    here.field = "SalesType";
    here.value = TextOf(value);
    sale.type = Clamped<std::int32_t>(WholeOf(value).value_or(0));
    if (shop_.UsesSap()) {
        if (value.IsNull()) findings_.Add("K305", here);
    } else if (!fileexport::HasReceiptPostings(value)) {
        findings_.Add("K202", here);
    }
}

void SalesCheck::TakeStatus(const Value& value, SaleRecord& sale, const Place& place) {
    if (platform::Equals(value, store::sales_status::kOpen)) return;
    sale.status = store::sales_status::kTransferred;
    Place here = place;
    here.field = "SalesStatus";
    here.value = TextOf(value);
    if (shop_.UsesSap()) {
        here.text =
            "SalesStatus er {value}, ikke 0: salget er merket som overført, men SAP får det "
            "likevel.";
    }
    findings_.Add("K203", here);
}

void SalesCheck::TakeDate(const Value& value, SaleRecord& sale, const Place& place) {
    Place here = place;
    here.field = "SalesDate";
    here.value = TextOf(value);
    sale.date = Clamped<std::int32_t>(WholeOf(value).value_or(0));
    const bool isSeen = dates_.contains(sale.date) && value.AsWhole() != nullptr;
    const std::optional<std::string> date =
        isSeen ? std::optional(dates_[sale.date]) : DateText(value);
    if (!date) {
        sale.flags |= sale_flag::kNoDate;
        return findings_.Add("K204", here);
    }
    if (dates_.size() < kMostDates) dates_.emplace(sale.date, *date);
    if (sale.date <= today_) return;
    here.value = *date;
    findings_.Add("K205", here);
}

void SalesCheck::TakeCustomer(const FileRow& row, SaleRecord& sale, const Place& place) {
    const Value& customer = ValueAt(row.values, columns_.customer);
    const std::string id = platform::TrimmedText(customer);
    Place here = place;
    here.field = "CustomerID";
    here.value = platform::ToText(customer);
    if (!id.empty() && !hasCustomer_.Of(id)) findings_.Add("K405", here);
    if (sap_ != nullptr) {
        if (!sap_->TakeCustomer(store::Sale(row.View()), sale)) {
            sale.flags |= sale_flag::kNotInSap;
            KeepCustomer(sale, sap_->CustomerCode());
        }
        return;
    }
    if (!creditToOrderIsFalse_) return;
    const std::optional<std::int32_t>& account = accounts_.Of(platform::ToText(customer));
    sale.account = account.value_or(0);
    if (account) return;
    sale.flags |= sale_flag::kNoAccount;
    KeepCustomer(sale, platform::ToText(customer));
}

void SalesCheck::KeepCustomer(const SaleRecord& sale, const std::string& customer) {
    if (customer.empty() || toldCustomers_.size() >= kMostCustomersKept) return;
    toldCustomers_.emplace(sale.id, platform::Left(customer, 60));
}

std::string SalesCheck::CustomerOf(const SaleRecord& sale) const {
    const auto found = toldCustomers_.find(sale.id);
    return found == toldCustomers_.end() ? std::string() : found->second;
}

void SalesCheck::TakeTexts(const FileRow& row, const Place& place) {
    if (!fileexport::IsOrder(ValueAt(row.values, columns_.type))) return;
    hasOrders_ = true;
    CheckRecordText(ValueAt(row.values, columns_.customer), "CustomerID", place, findings_);
    CheckRecordText(ValueAt(row.values, columns_.customerName), "CustomerName", place, findings_);
    const Value& ourRef = ValueAt(row.values, columns_.ourRef);
    CheckRecordText(platform::Left(platform::ToText(ourRef), kReferenceLength), "OurRef", place,
                    findings_);
}

void SalesCheck::EndOfSales() {
    sales_.Index();
    if (sales_.InFileOrder().empty()) return findings_.Add("K106");
    std::set<std::int64_t> told;
    for (const SaleRecord& sale : sales_.InFileOrder()) {
        if (!sale.Has(sale_flag::kTwice) || !told.insert(sale.id).second) continue;
        const std::string id = std::to_string(sale.id);
        findings_.Add("K201", {.sale = id, .field = "ID", .value = id});
    }
    CheckDates();
}

void SalesCheck::CheckDates() {
    if (dates_.size() < 2) return;
    std::string all;
    for (const auto& [date, text] : dates_)
        all += (all.empty() ? "" : ", ") + text;
    findings_.Add("K206", {.field = "SalesDate", .value = all});
}

void SalesCheck::EndOfLines() {
    for (const SaleRecord& sale : sales_.InFileOrder())
        CheckSale(sale);
}

void SalesCheck::CheckSale(const SaleRecord& sale) {
    const Place place{.sale = std::to_string(sale.id)};
    if (sale.Has(sale_flag::kTwice)) return;  // their lines can not be told apart
    if (!sale.Has(sale_flag::kLines)) findings_.Add("K207", place);
    if (!sale.Has(sale_flag::kIncomplete) && !IsZeroMoney(sale.units)) {
        Place here = place;
        here.field = "Amount";
        here.value = MoneyText(sale.units);
        findings_.Add("K302", here);
    }
    if (sap_ != nullptr) {
        sap_->CheckSale(sale, CustomerOf(sale));
    } else if (!shop_.UsesSap()) {
        CheckFileExport(sale, place);
    }
}

void SalesCheck::CheckFileExport(const SaleRecord& sale, const Place& place) {
    Place here = place;
    if (sale.type >= store::sales_type::kType3 && sale.Has(sale_flag::kPayments)) {
        here.field = "SalesType";
        here.value = std::to_string(sale.type);
        findings_.Add("K209", here);
    }
    if (sale.Has(sale_flag::kOnAccount) && sale.Has(sale_flag::kNoAccount) &&
        fileexport::HasReceiptPostings(sale.type)) {
        here.field = "CustomerID";
        here.value = CustomerOf(sale);
        findings_.Add("K404", here);
    }
}

}  // namespace control
