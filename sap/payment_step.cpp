#include "sap/payment_step.h"

#include "platform/norwegian.h"
#include "sap/payments.h"
#include "store/transaction_types.h"

namespace sap {

using platform::Recordset;
using platform::Value;
namespace trans_type = store::trans_type;

namespace {

constexpr const char* kPaymentLines = "TransType >= 10";
constexpr int kLastPaymentType = 29;
constexpr int kLastBeforeCards = 20;

struct Payments {
    double total = 0;
    int type = 0;  // of the last line; change counts as cash
};

Payments Sum(Recordset& lineView) {
    Payments payments;
    for (; !lineView.IsEof(); lineView.MoveNext()) {
        payments.total += platform::ToDouble(lineView.Get("Amount"));
        const Value code = lineView.Get("TransType");
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
                         std::int16_t saleNumber) {
    const auto lineView = saleLines.Open(kPaymentLines, saleNumber);
    Payments payments;
    if (context.runState.SalesLinesRecordset->RecordCount() > 0) payments = Sum(*lineView);
    if (lineView->AbsolutePosition() >= 0) {
        for (lineView->MoveFirst(); !lineView->IsEof(); lineView->MoveNext()) {
            Book(context, payments, saleNumber);
        }
    }
    lineView->Close();
}

}  // namespace sap
