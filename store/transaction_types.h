// The codes that sales, sales lines and master data carry, and the ledger account and posting text
// that belong to each means of payment.
#pragma once

#include <optional>

#include "platform/value.h"
#include "store/options.h"

namespace store {

// SalesLines.TransType
namespace trans_type {
inline constexpr int kRounding = 0;
inline constexpr int kSales1 = 1;
inline constexpr int kSales2 = 2;
inline constexpr int kCash = 10;
inline constexpr int kChange = 11;
inline constexpr int kBank = 12;
inline constexpr int kCreditSale = 13;
inline constexpr int kPrepayment = 14;
inline constexpr int kInvoicePayment = 15;
inline constexpr int kIOU = 16;
inline constexpr int kFirstCard = 21;
inline constexpr int kLastCard = 27;
}  // namespace trans_type

// Sales.SalesType
namespace sales_type {
inline constexpr int kReceipt = 1;
inline constexpr int kOrder = 2;
inline constexpr int kType3 = 3;
inline constexpr int kType4 = 4;
}  // namespace sales_type

// Sales.SalesStatus
namespace sales_status {
inline constexpr int kOpen = 0;
inline constexpr int kTransferred = 1;
}  // namespace sales_status

// Status of customers, products and price-matrix rows
namespace master_status {
inline constexpr int kNothingToDo = 0;
inline constexpr int kNew = 1;
inline constexpr int kChanged = 2;
}  // namespace master_status

struct Ledger {
    const char* accountField;  // field of the Options row; null: the sale's customer
    const char* text;          // posting text, or the field that holds it
    bool textIsField;

    [[nodiscard]] platform::Value TextFrom(const Options& options) const;
};

// The ledger of a TransType; none for a code that posts nothing (20 and 28 among them).
[[nodiscard]] std::optional<Ledger> LedgerOf(int transType);

}  // namespace store
