#include "sap/payment_step.h"

#include "platform/comparison.h"
#include "platform/norwegian.h"
#include "sap/payments.h"
#include "store/sale_line.h"
#include "store/transaction_types.h"

namespace sap {

using platform::Value;
using platform::database::ClientRecordset;
namespace trans_type = store::trans_type;

namespace {

constexpr int kLastPaymentType = 29;
constexpr int kLastBeforeCards = 20;

struct Payments {
    double total = 0;
    int type = 0;  // of the last line; change counts as cash
};

Payments Sum(ClientRecordset& lineView) {
    Payments payments;
    for (; !lineView.IsEof(); lineView.MoveNext()) {
        const store::SaleLine line(lineView);
        payments.total += platform::ToDouble(line.Amount());
        const Value code = line.TransType();
        payments.type = platform::Equals(code, trans_type::kChange) ? trans_type::kCash
                                                                    : platform::ToInt32(code);
    }
    return payments;
}

void Book(const TransferContext& context, const Payments& payments, std::int16_t saleNumber) {
    const platform::sapdi::Documents& document = *context.objects.SalesDocument;
    const bool isPayment = payments.type >= trans_type::kCash && payments.type <= kLastPaymentType;
    if (payments.total == 0 || !isPayment || document.DocNum() <= 0) return;
    const bool isBooked = payments.type == trans_type::kCash ||
                          payments.type == trans_type::kBank || payments.type > kLastBeforeCards;
    if (!isBooked) return;
    CreateDocumentPayment(context, static_cast<std::int16_t>(payments.type), -payments.total,
                          document.CardCode(), saleNumber);
}

}  // namespace

void BookReceiptPayments(const TransferContext& context, const SaleLines& saleLines,
                         std::int16_t saleNumber, long itemLines) {
    const auto lineView = saleLines.Open(LineKind::Payments, saleNumber);
    Payments payments;
    if (itemLines > 0) payments = Sum(*lineView);
    for (; !lineView->IsEof(); lineView->MoveNext())
        Book(context, payments, saleNumber);
}

}  // namespace sap
