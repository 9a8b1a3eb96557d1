#include "control/day_sums.h"

#include <algorithm>
#include <string>

#include "control/row.h"
#include "control/values.h"
#include "fileexport/daily_sums.h"
#include "fileexport/record_writer.h"
#include "platform/comparison.h"
#include "platform/error.h"
#include "platform/text.h"
#include "store/schema.h"
#include "store/transaction_types.h"

namespace control {

using fileexport::DailySum;
using fileexport::Posting;
using platform::RuntimeError;
using platform::Value;
using platform::database::Database;
using platform::database::TableAppender;

namespace {

constexpr std::size_t kMostGroups = 20000;  // in memory, a few MB

Value Optional(const std::optional<std::int64_t>& number) {
    return number ? Value(*number) : Value();
}

void SetByName(TableAppender& table, std::string_view name, const Value& value) {
    for (int i = 0; i < table.FieldCount(); ++i) {
        if (table.FieldName(i) == name) table.Set(i, value);
    }
}

void AppendSale(Database& database, std::int64_t id, const SaleRecord& sale) {
    const auto table = database.OpenAppender("Sales");
    SetByName(*table, "ID", id);
    SetByName(*table, "SalesType", std::int64_t{sale.type});
    SetByName(*table, "SalesStatus", std::int64_t{sale.status});
    SetByName(*table, "SalesDate", std::int64_t{sale.date});
    table->Save();
}

void AppendLine(Database& database, std::int64_t saleId, const LineGroup& line, double amount) {
    const auto table = database.OpenAppender("SalesLines");
    SetByName(*table, "SalesID", saleId);
    SetByName(*table, "TransType", line.transType);
    if (line.isRoundingProduct) SetByName(*table, "ProductID", "Avrunding");
    SetByName(*table, "Amount", amount);
    SetByName(*table, "VatCode", Optional(line.vatCode));
    SetByName(*table, "SalesAccount", Optional(line.account));
    table->Save();
}

// The field of the options that holds the account of a sum, or nothing where it names its own.
using AccountFieldOf = std::string(const DailySum& sum);

std::string SalesField(const DailySum& sum) {
    const bool isOwn = platform::Compare(sum.SalesAccount(), 0) == platform::Ordering::Greater;
    return isOwn ? std::string() : store::LedgerOf(store::trans_type::kSales1)->accountField;
}

std::string RoundingField(const DailySum&) {
    return store::LedgerOf(store::trans_type::kRounding)->accountField;
}

std::string PaymentField(const DailySum& sum) {
    const auto code = static_cast<int>(WholeOf(sum.TransType()).value_or(-1));
    const auto ledger = store::LedgerOf(code);
    return ledger && ledger->accountField ? ledger->accountField : "";
}

}  // namespace

struct DaySums::Kind {
    const char* query;  // null: that of the options
    std::optional<Posting> (*postingOf)(const DailySum& sum, const store::Options& options);
    AccountFieldOf* accountField;
};

const DaySums::Kind DaySums::kKinds[] = {
    {nullptr, fileexport::PostingOfSales, SalesField},
    {fileexport::kRoundingQuery, fileexport::PostingOfRounding, RoundingField},
    {fileexport::kPaymentQuery, fileexport::PostingOfPayment, PaymentField},
};

DaySums::DaySums(const Shop& shop, Findings& findings)
    : options_(shop.Options()),
      findings_(findings),
      sums_(shop.Outside().makeScratch()),
      trial_(shop.Outside().makeScratch()) {
    store::CreateSalesTables(*sums_);
    store::CreateSalesTables(*trial_);
}

void DaySums::Add(const SaleRecord& sale, const LineGroup& line, std::int64_t units) {
    std::int64_t& sum = groups_[{sale.date, sale.type, sale.status, line}];
    if (__builtin_add_overflow(sum, units, &sum)) isTooLarge_ = true;
    if (groups_.size() > kMostGroups) Store();
}

// Sums of sums are the sums of the day: the export's queries do not see the difference.
void DaySums::Store() {
    const auto transaction = sums_->BeginTransaction();
    for (const auto& [key, units] : groups_) {
        const auto& [date, type, status, line] = key;
        SaleRecord sale;
        sale.date = date;
        sale.type = type;
        sale.status = status;
        AppendSale(*sums_, ++stored_, sale);
        AppendLine(*sums_, stored_, line, platform::database::AmountOfUnits(units));
    }
    transaction->Commit();
    groups_.clear();
}

bool DaySums::Takes(std::int32_t salesType, const LineGroup& line) {
    const std::pair key(salesType, line);
    const auto known = taken_.find(key);
    if (known != taken_.end()) return known->second;
    if (taken_.size() > kMostGroups) taken_.clear();
    const auto transaction = trial_->BeginTransaction();
    SaleRecord sale;
    sale.type = salesType;
    AppendSale(*trial_, 1, sale);
    AppendLine(*trial_, 1, line, 1.0);
    bool isTaken = !trial_->OpenQuery(fileexport::kReceiptAndOrderSalesQuery)->IsEof() ||
                   !trial_->OpenQuery(fileexport::kRoundingQuery)->IsEof();
    const auto payments = trial_->OpenQuery(fileexport::kPaymentQuery);
    if (!payments->IsEof()) isTaken = isTaken || IsPosted(DailySum(*payments));
    transaction->RollBack();
    return taken_[key] = isTaken;
}

bool DaySums::IsPosted(const DailySum& payments) const {
    try {
        return fileexport::PostingOfPayment(payments, options_).has_value();
    } catch (const RuntimeError&) {
        return true;  // it would be, but for its account
    }
}

void DaySums::AddReceiptLine(const SaleRecord& sale, const store::SaleLine& line,
                             const Place& place) {
    if (!fileexport::HasReceiptPostings(sale.type)) return;
    const Row row({{"ID", sale.id},
                   {"CustomerID", std::int64_t{sale.account}},
                   {"SalesDate", std::int64_t{sale.date}}});
    const auto posting = fileexport::PostingOfReceiptLine(store::Sale(row), line, options_);
    if (!posting) return;
    AddToBalance(posting->amount);
    CheckLength(*posting, place);
}

void DaySums::AddToBalance(const Value& amount) {
    if (amount.IsNull()) return;
    const auto units = platform::database::AmountUnits(platform::ToDouble(amount));
    if (!units || __builtin_add_overflow(balance_, *units, &balance_)) isTooLarge_ = true;
}

void DaySums::Check() {
    Store();
    try {
        for (const Kind& kind : kKinds)
            CheckSums(kind);
    } catch (const RuntimeError& error) {
        if (error.Number() != platform::error_number::kOverflow) throw;
        isTooLarge_ = true;
    }
    if (isTooLarge_) {
        findings_.Add("K305",
                      {.field = "Amount",
                       .text = "Summen av beløpene er større enn regnskapet kan regne med."});
    } else {
        CheckBalance();
    }
}

void DaySums::CheckSums(const Kind& kind) {
    const auto rows =
        sums_->OpenQuery(kind.query != nullptr ? kind.query : fileexport::SalesQueryOf(options_));
    for (; !rows->IsEof(); rows->MoveNext())
        CheckSum(kind, DailySum(*rows));
}

void DaySums::CheckSum(const Kind& kind, const DailySum& sum) {
    std::optional<Posting> posting;
    try {
        posting = kind.postingOf(sum, options_);
    } catch (const RuntimeError&) {
        TellAccount("K401", kind, sum);
        return AddToBalance(sum.Total());
    }
    if (!posting) return;
    AddToBalance(posting->amount);
    if (posting->account == 0) TellAccount("K402", kind, sum);
    CheckLength(*posting, {});
}

void DaySums::TellAccount(std::string_view code, const Kind& kind, const DailySum& sum) {
    const std::string field = kind.accountField(sum);
    if (!toldAccounts_.insert(field).second) return;
    if (field.empty()) {
        findings_.Add(code, {.field = "SalesAccount",
                             .value = TextOf(sum.SalesAccount()),
                             .text = "En varelinje har konto {value}, som er for stor."});
    } else {
        findings_.Add(code, {.field = field, .value = TextOf(options_.Field(field))});
    }
}

void DaySums::CheckLength(const Posting& posting, const Place& place) {
    const std::string line = fileexport::VoucherLine(fileexport::RecordOf(posting, options_));
    const std::size_t length = platform::Length(line);
    if (length <= fileexport::kVoucherLineLimit) return;
    Place here = place;
    here.value = std::to_string(length);
    findings_.Add("K307", here);
}

void DaySums::CheckBalance() {
    if (IsZeroMoney(balance_)) return;
    const bool isByDesign = !platform::Equals(options_.CreditToOrder(), false);
    Place place;
    place.value = MoneyText(-balance_);
    if (isByDesign) {
        place.severity = Severity::Warning;
        place.text =
            "Debet og kredit i dagens bilag blir ikke like: forskjellen er {value}. CreditToOrder "
            "er ikke slått av, og da blir bestillinger og kundekontoer holdt utenfor bilaget.";
    }
    findings_.Add("K406", place);
}

}  // namespace control
