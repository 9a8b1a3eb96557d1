// One receipt: what is sold or paid on it, and that its records sum to 0. Knows no files.
// Signs: what the shop gives (goods, change, a slip for a return) and what is paid into a
// customer's account is positive, what it takes (goods returned, money, a debt of a customer) is
// negative.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "demo/random.h"
#include "demo/shop.h"

namespace demo {

// Kinds of a receipt's records. A table of the demo's own: its shops are what the server is tried
// on.
namespace record {
inline constexpr int kRounding = 0;
inline constexpr int kGoods = 1;
inline constexpr int kService = 2;
inline constexpr int kCash = 10;
inline constexpr int kChange = 11;
inline constexpr int kBank = 12;
inline constexpr int kCreditSale = 13;
inline constexpr int kPrepayment = 14;
inline constexpr int kInvoicePayment = 15;
inline constexpr int kIou = 16;
inline constexpr int kFirstCard = 21;
inline constexpr int kLastCard = 27;
}  // namespace record

struct ReceiptLine {
    int kind = 0;
    std::string_view productId;    // of the shop's table; empty for money
    std::string_view description;  // likewise
    std::int64_t quantity = 1000;  // thousandths
    std::int64_t price = 0;        // øre with VAT
    std::int64_t discount = 0;     // per cent
    std::int64_t costPrice = 0;    // øre
    std::int64_t amount = 0;       // øre
    int vatCode = 0;
    int salesAccount = 0;
    std::string text;  // the customer's reference on the payment of an invoice
};

struct Receipt {
    int salesType = 1;
    const Customer* customer = nullptr;  // none: anonymous
    std::string project;
    std::size_t seller = 0;  // from 1
    std::vector<ReceiptLine> lines;
};

enum class Occasion { Sale, Return, Exchange, Prepayment, InvoicePayment };

struct ReceiptKind {
    Occasion occasion;
    int salesType;
    int paidWith;  // kind of the payment's record
    int weight;    // how often, beside the others
};

// Every kind that the shop has.
[[nodiscard]] std::span<const ReceiptKind> AllReceiptKinds();

// Paid with the commonest card: goods and one record of money, whatever the amount.
[[nodiscard]] const ReceiptKind& PlainReceiptKind();

class ReceiptMaker {
  public:
    // `paymentsGoWithGoods`: a payment of an invoice stands on a receipt with goods, never alone.
    ReceiptMaker(const Shop& shop, Random& random, bool paymentsGoWithGoods)
        : shop_(shop), random_(random), paymentsGoWithGoods_(paymentsGoWithGoods) {}

    // The records that a receipt of this kind may need.
    [[nodiscard]] std::int64_t FewestRecords(const ReceiptKind& kind) const;

    // A receipt of at most `records` records (not below FewestRecords). Rounding, change and the
    // rest of a slip fall away where the amount needs none; a plain receipt has exactly as many.
    [[nodiscard]] Receipt Make(const ReceiptKind& kind, std::int64_t records);

  private:
    [[nodiscard]] bool HasGoods(const ReceiptKind& kind) const;
    [[nodiscard]] static std::int64_t MoneyRecords(const ReceiptKind& kind);
    [[nodiscard]] const Customer* ChooseCustomer(const ReceiptKind& kind);
    [[nodiscard]] ReceiptLine GoodsLine(int sign);
    [[nodiscard]] std::int64_t ChooseQuantity(const Product& product);
    void AddGoods(Receipt& receipt, int sign, std::int64_t count);
    void AddExchange(Receipt& receipt);
    void AddCustomerPayment(Receipt& receipt, const ReceiptKind& kind);
    void Pay(Receipt& receipt, const ReceiptKind& kind);
    void PayCash(Receipt& receipt, std::int64_t total);
    void PayWithSlip(Receipt& receipt, std::int64_t total);

    const Shop& shop_;
    Random& random_;
    bool paymentsGoWithGoods_;
};

}  // namespace demo
