#include "fileexport/vouchers.h"

#include <cmath>
#include <optional>
#include <string>

#include "app/field_values.h"
#include "platform/database/literal.h"
#include "platform/norwegian.h"
#include "store/transaction_types.h"

namespace fileexport {

using platform::Recordset;
using platform::Value;
namespace trans_type = store::trans_type;

namespace {

constexpr const char* kReceiptSalesQuery =
    "SELECT SalesLines.SalesAccount, SalesLines.VatCode, sum(SalesLines.Amount), Sales.SalesDate "
    "From Sales, SalesLines WHERE Sales.ID = SalesLines.SalesID AND (SalesLines.TransType = 1 OR "
    "SalesLines.TransType = 2) AND SalesLines.SalesAccount >= 0 AND Sales.SalesStatus = 0 AND "
    "Sales.SalesType = 1 GROUP BY Sales.SalesDate, SalesAccount, VatCode";
constexpr const char* kReceiptAndOrderSalesQuery =
    "SELECT SalesLines.SalesAccount, SalesLines.VatCode, sum(SalesLines.Amount), Sales.SalesDate "
    "From Sales, SalesLines WHERE Sales.ID = SalesLines.SalesID AND (SalesLines.TransType = 1 OR "
    "SalesLines.TransType = 2) AND SalesLines.SalesAccount >= 0 AND Sales.SalesStatus = 0 AND "
    "Sales.SalesType > 0 AND Sales.SalesType < 3 GROUP BY Sales.Salesdate, SalesAccount, VatCode";
constexpr const char* kRoundingQuery =
    "SELECT sum(SalesLines.Amount), Sales.SalesDate From Sales, SalesLines WHERE Sales.ID = "
    "SalesLines.SalesID AND SalesLines.ProductID = 'Avrunding' AND SalesLines.TransType = 0 AND "
    "Sales.SalesStatus = 0 AND Sales.SalesType = 1 GROUP BY Sales.SalesDate";
constexpr const char* kPaymentQuery =
    "SELECT SalesLines.TransType, sum(SalesLines.Amount), Sales.SalesDate From Sales, SalesLines "
    "WHERE Sales.ID = SalesLines.SalesID AND sales.SalesType > 0 AND sales.SalesType < 3 AND "
    "sales.SalesStatus = 0 GROUP BY Sales.Salesdate, TransType";

// The accounting package's voucher types.
constexpr int kSalesVoucher = 11;
constexpr int kRoundingVoucher = 39;
constexpr int kIOUVoucher = 1;
constexpr int kPaymentVoucher = 88;
constexpr int kCustomerPaymentVoucher = 3;

bool IsAboveZero(const Value& value) {
    return platform::Compare(value, 0) == platform::Ordering::Greater;
}

// A sum of nothing but nulls is null and counts as none.
bool IsNotZero(const Value& sum) {
    return !sum.IsNull() && !platform::Equals(sum, 0);
}

// An account number out of a field, whose name an error bears.
std::int32_t AccountOf(const Value& account, const std::string& field) {
    return platform::AtPlace(field, [&] { return platform::ToInt32(account); });
}

Value AbsoluteOf(const Value& amount) {
    if (amount.IsNull()) return {};
    return std::fabs(platform::ToDouble(amount));
}

// Puts account and VAT code on the side that the amount's sign chooses; the other side gets zeros.
void PostingSide(const Posting& posting, VoucherRecord& record) {
    const bool isCredit = IsAboveZero(posting.amount);
    record.DbAcNo = isCredit ? Value(0) : Value(posting.account);
    record.DbTxCd = isCredit ? Value(0) : posting.vatCode;
    record.CrAcNo = isCredit ? Value(posting.account) : Value(0);
    record.CrTxCd = isCredit ? posting.vatCode : Value(0);
    record.Am = AbsoluteOf(posting.amount);
}

constexpr int kPostedInSums[] = {
    trans_type::kIOU,           trans_type::kCash,          trans_type::kChange,
    trans_type::kBank,          trans_type::kFirstCard,     trans_type::kFirstCard + 1,
    trans_type::kFirstCard + 2, trans_type::kFirstCard + 3, trans_type::kFirstCard + 4,
    trans_type::kFirstCard + 5, trans_type::kLastCard};
constexpr int kPostedByReceipt[] = {trans_type::kCreditSale, trans_type::kPrepayment,
                                    trans_type::kInvoicePayment};

// Which of the codes a line's TransType is, if it is one of them.
template <std::size_t Count>
std::optional<int> CodeAmong(const int (&codes)[Count], const Value& transType) {
    for (const int code : codes) {
        if (platform::Equals(transType, code)) return code;
    }
    return std::nullopt;
}

}  // namespace

Vouchers::Vouchers(platform::TextFile& voucherFile, RecordCounter& recordCounter,
                   const store::Databases& databases, ui::RunState& runState,
                   const platform::Clock& clock)
    : voucherFile_(voucherFile),
      recordCounter_(recordCounter),
      databases_(databases),
      runState_(runState),
      clock_(clock) {}

void Vouchers::Write() {
    WriteBatch();
    WriteSalesPostings();
    WriteRoundingPostings();
    WritePaymentPostings();
    WriteReceiptPostings();
    runState_.SalesLinesRecordset.Release();
    AdvanceVoucherNo();
}

void Vouchers::WriteBatch() {
    WriteVoucherHeaders(voucherFile_, recordCounter_, app::DateToYmd(clock_.Now()),
                        "Overføring fra butikkdata", "1");
}

void Vouchers::WriteSalesPostings() {
    const bool receiptsOnly = platform::Equals(Option("CreditToOrder"), true);
    Recordset& sums =
        OpenOnWorkConnection(receiptsOnly ? kReceiptSalesQuery : kReceiptAndOrderSalesQuery);
    const store::Ledger ledger = *store::LedgerOf(trans_type::kSales1);
    for (; !sums.IsEof(); sums.MoveNext()) {
        const Value account = sums.Get(0);
        const Value vatCode = sums.Get(1);
        Posting posting;
        posting.account = IsAboveZero(account) ? AccountOf(account, "SalesLines.SalesAccount")
                                               : OptionAccount(ledger.accountField);
        posting.vatCode = IsAboveZero(vatCode) ? vatCode : Option("DefaultVATCode");
        posting.amount = sums.Get(2);
        posting.date = sums.Get("SalesDate");
        posting.voucherType = kSalesVoucher;
        posting.text = ledger.text;
        if (IsNotZero(posting.amount)) WritePosting(posting);
    }
    sums.Close();
}

void Vouchers::WriteRoundingPostings() {
    Recordset& sums = OpenOnWorkConnection(kRoundingQuery);
    const store::Ledger ledger = *store::LedgerOf(trans_type::kRounding);
    for (; !sums.IsEof(); sums.MoveNext()) {
        Posting posting;
        posting.account = platform::ToInt32(app::NzNumber(Option(ledger.accountField)));
        posting.amount = sums.Get(0);
        posting.date = sums.Get("SalesDate");
        posting.voucherType = kRoundingVoucher;
        posting.text = ledger.text;
        if (IsNotZero(posting.amount)) WritePosting(posting);
    }
    sums.Close();
}

void Vouchers::WritePaymentPostings() {
    Recordset& sums = OpenOnWorkConnection(kPaymentQuery);
    for (; !sums.IsEof(); sums.MoveNext()) {
        const std::optional<int> payment = CodeAmong(kPostedInSums, sums.Get(0));
        if (!payment) continue;
        const store::Ledger ledger = *store::LedgerOf(*payment);
        Posting posting;
        posting.account = OptionAccount(ledger.accountField);
        posting.amount = sums.Get(1);
        posting.date = sums.Get("SalesDate");
        posting.voucherType = *payment == trans_type::kIOU ? kIOUVoucher : kPaymentVoucher;
        posting.text = ledger.TextFrom(*databases_.OptionsTable);
        WritePosting(posting);  // also a sum of 0
    }
    sums.Close();
}

void Vouchers::WriteReceiptPostings() {
    const auto index = databases_.WorkConnection->IndexForNow("SalesLines", "SalesID, LineNo");
    Recordset& sale = *runState_.SalesRecordset;
    for (sale.MoveFirst(); !sale.IsEof(); sale.MoveNext()) {
        platform::AtPlace("Sale " + platform::ToText(sale.Get("ID")), [&] {
            WriteReceipt(sale);
            MarkSale(sale);
        });
    }
}

void Vouchers::WriteReceipt(Recordset& sale) {
    if (IsAboveZero(sale.Get("SalesType"))) {
        Recordset& lines = OpenOnWorkConnection(
            "SELECT * FROM SalesLines WHERE SalesID = " +
            platform::NumberLiteral(sale.Get("ID"), "Sales.ID") + " ORDER BY LineNo");
        for (; !lines.IsEof(); lines.MoveNext())
            WriteReceiptLine(sale, lines);
    }
    // Also without lines of its own: at a sale of type 0 or less this closes what is closed already
    // and ends the export. Kept on purpose.
    runState_.SalesLinesRecordset->Close();
}

void Vouchers::WriteReceiptLine(const Recordset& sale, const Recordset& line) {
    const std::optional<int> code = CodeAmong(kPostedByReceipt, line.Get("TransType"));
    if (!code) return;
    if (!platform::Equals(Option("CreditToOrder"), false)) return;

    Posting posting;
    posting.account = AccountOf(sale.Get("CustomerID"), "CustomerID");
    posting.amount = line.Get("Amount");
    posting.date = sale.Get("SalesDate");
    posting.voucherType =
        *code == trans_type::kCreditSale ? kSalesVoucher : kCustomerPaymentVoucher;
    posting.text = store::LedgerOf(*code)->text;
    if (*code == trans_type::kInvoicePayment) {
        posting.agreementRef = line.Get("String1");
    } else {
        posting.invoiceNo = "BONG" + platform::ToText(sale.Get("ID"));
    }
    WritePosting(posting);
}

void Vouchers::MarkSale(Recordset& sale) {
    sale.Edit();
    sale.Set("SalesStatus", store::sales_status::kTransferred);
    sale.Set("DayEndDate", clock_.Now());
    sale.Update();
}

void Vouchers::AdvanceVoucherNo() {
    platform::TableRecordset& options = *databases_.OptionsTable;
    const Value voucherNo = options.Get("NextVoucherNo");
    options.Edit();
    options.Set("NextVoucherNo",
                voucherNo.IsNull() ? Value() : Value(platform::ToDouble(voucherNo) + 1));
    options.Update();
}

Recordset& Vouchers::OpenOnWorkConnection(std::string_view query) {
    runState_.SalesLinesRecordset = databases_.WorkConnection->OpenQuery(query);
    return *runState_.SalesLinesRecordset;
}

void Vouchers::WritePosting(const Posting& posting) {
    VoucherRecord record;
    record.VoNo = Option("NextVoucherNo");
    record.VoDt = posting.date;
    record.VoTp = posting.voucherType;
    record.Txt = posting.text;
    record.DbAcCl = 0;
    record.CrAcCl = 0;
    PostingSide(posting, record);
    record.InvoNo = posting.invoiceNo;
    record.AgRef = posting.agreementRef;
    record.Task = 0;
    record.DueDt = 0;
    record.R1 = Option("DeptNo");
    record.R2 = record.R3 = record.R4 = record.R5 = record.R6 = 0;
    WriteVoucherRecord(voucherFile_, recordCounter_, record);
}

std::int32_t Vouchers::OptionAccount(const std::string& field) const {
    return AccountOf(Option(field), "Options." + field);
}

Value Vouchers::Option(std::string_view field) const {
    return databases_.OptionsTable->Get(field);
}

}  // namespace fileexport
