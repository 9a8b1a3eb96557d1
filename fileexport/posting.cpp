#include "fileexport/posting.h"

#include <cmath>
#include <string>

#include "app/field_values.h"
#include "platform/comparison.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "store/transaction_types.h"

namespace fileexport {

using platform::Value;
namespace trans_type = store::trans_type;

namespace {

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
bool IsNothing(const Value& sum) {
    return sum.IsNull() || platform::Equals(sum, 0);
}

std::int32_t AccountOf(const Value& account, const std::string& field) {
    return platform::AtPlace(field, [&] { return platform::ToInt32(account); });
}

std::int32_t OptionAccount(const store::Options& options, const std::string& field) {
    return AccountOf(options.Field(field), "Options." + field);
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
    record.Am = AbsoluteOf(posting.amount);  // kept: comma-and-point. Here a comma.
}

constexpr int kPostedInSums[] = {
    trans_type::kIOU,           trans_type::kCash,          trans_type::kChange,
    trans_type::kBank,          trans_type::kFirstCard,     trans_type::kFirstCard + 1,
    trans_type::kFirstCard + 2, trans_type::kFirstCard + 3, trans_type::kFirstCard + 4,
    trans_type::kFirstCard + 5, trans_type::kLastCard};
constexpr int kPostedByReceipt[] = {trans_type::kCreditSale, trans_type::kPrepayment,
                                    trans_type::kInvoicePayment};

template <std::size_t Count>
std::optional<int> CodeAmong(const int (&codes)[Count], const Value& transType) {
    for (const int code : codes) {
        if (platform::Equals(transType, code)) return code;
    }
    return std::nullopt;
}

}  // namespace

std::optional<Posting> PostingOfSales(const DailySum& sum, const store::Options& options) {
    const Value total = sum.Total();
    if (IsNothing(total)) return std::nullopt;
    const store::Ledger ledger = *store::LedgerOf(trans_type::kSales1);
    const Value account = sum.SalesAccount();
    const Value vatCode = sum.VatCode();
    Posting posting;
    posting.account = IsAboveZero(account) ? AccountOf(account, "SalesLines.SalesAccount")
                                           : OptionAccount(options, ledger.accountField);
    posting.vatCode = IsAboveZero(vatCode) ? vatCode : options.DefaultVATCode();
    posting.amount = total;
    posting.date = sum.SalesDate();
    posting.voucherType = kSalesVoucher;
    posting.text = ledger.text;
    return posting;
}

std::optional<Posting> PostingOfRounding(const DailySum& sum, const store::Options& options) {
    const Value total = sum.Total();
    if (IsNothing(total)) return std::nullopt;
    const store::Ledger ledger = *store::LedgerOf(trans_type::kRounding);
    Posting posting;
    // kept: only-long1-may-be-empty. Then it is account 0; any other empty account is an error.
    posting.account = platform::ToInt32(app::NzNumber(options.Field(ledger.accountField)));
    posting.amount = total;
    posting.date = sum.SalesDate();
    posting.voucherType = kRoundingVoucher;
    posting.text = ledger.text;
    return posting;
}

// kept: payments-of-zero. A sum of 0 is posted too, on the debit side.
std::optional<Posting> PostingOfPayment(const DailySum& sum, const store::Options& options) {
    const std::optional<int> payment = CodeAmong(kPostedInSums, sum.TransType());
    if (!payment) return std::nullopt;
    const store::Ledger ledger = *store::LedgerOf(*payment);
    Posting posting;
    posting.account = OptionAccount(options, ledger.accountField);
    posting.amount = sum.Total();
    posting.date = sum.SalesDate();
    posting.voucherType = *payment == trans_type::kIOU ? kIOUVoucher : kPaymentVoucher;
    posting.text = ledger.TextFrom(options);
    return posting;
}

std::optional<Posting> PostingOfReceiptLine(const store::Sale& sale, const store::SaleLine& line,
                                            const store::Options& options) {
    // kept: credit-to-order. An empty one is neither true nor false: nothing is posted by receipt.
    const std::optional<int> code = CodeAmong(kPostedByReceipt, line.TransType());
    if (!code || !platform::Equals(options.CreditToOrder(), false)) return std::nullopt;

    Posting posting;
    posting.account = AccountOf(sale.CustomerID(), "CustomerID");
    posting.amount = line.Amount();
    posting.date = sale.SalesDate();
    posting.voucherType =
        *code == trans_type::kCreditSale ? kSalesVoucher : kCustomerPaymentVoucher;
    posting.text = store::LedgerOf(*code)->text;
    if (*code == trans_type::kInvoicePayment) {
        posting.agreementRef = line.String1();
    } else {
        posting.invoiceNo = "BONG" + platform::ToText(sale.ID());
    }
    return posting;
}

const char* SalesQueryOf(const store::Options& options) {
    // kept: credit-to-order. The sales of orders are left out, their payments are not.
    const bool receiptsOnly = platform::Equals(options.CreditToOrder(), true);
    return receiptsOnly ? kReceiptSalesQuery : kReceiptAndOrderSalesQuery;
}

bool HasReceiptPostings(const Value& salesType) {
    return IsAboveZero(salesType);
}

VoucherRecord RecordOf(const Posting& posting, const store::Options& options) {
    VoucherRecord record;
    record.VoNo = options.NextVoucherNo();
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
    record.R1 = options.DeptNo();
    record.R2 = record.R3 = record.R4 = record.R5 = record.R6 = 0;
    return record;
}

}  // namespace fileexport
