#include "demo/receipt.h"

#include <algorithm>

namespace demo {

namespace {

// Takes any number of records, so it fills what the others leave.
constexpr ReceiptKind kPlain = {Occasion::Sale, 1, record::kFirstCard, 24};

// Every occasion and means of payment; the weights are per cent of the sales.
constexpr ReceiptKind kKinds[] = {
    kPlain,
    {Occasion::Sale, 1, record::kCash, 24},
    {Occasion::Sale, 1, record::kFirstCard + 1, 8},
    {Occasion::Sale, 1, record::kFirstCard + 2, 6},
    {Occasion::Sale, 1, record::kFirstCard + 3, 3},
    {Occasion::Sale, 1, record::kFirstCard + 4, 3},
    {Occasion::Sale, 1, record::kFirstCard + 5, 1},
    {Occasion::Sale, 1, record::kLastCard, 2},
    {Occasion::Sale, 1, record::kBank, 2},
    {Occasion::Sale, 1, record::kIou, 3},
    {Occasion::Sale, 1, record::kCreditSale, 4},
    {Occasion::Sale, 2, record::kCreditSale, 7},
    {Occasion::Sale, 2, record::kBank, 2},
    // A faulty piece comes back and a new one is ordered. Nothing is paid: no voucher would hold
    // it.
    {Occasion::Exchange, 4, record::kFirstCard, 2},
    {Occasion::Return, 1, record::kCash, 2},
    {Occasion::Return, 1, record::kFirstCard, 2},
    {Occasion::Return, 1, record::kIou, 2},
    {Occasion::Return, 2, record::kCreditSale, 1},
    {Occasion::Prepayment, 1, record::kFirstCard, 1},
    {Occasion::InvoicePayment, 1, record::kFirstCard, 1},
};

std::int64_t TotalOf(const Receipt& receipt) {
    std::int64_t total = 0;
    for (const ReceiptLine& line : receipt.lines)
        total += line.amount;
    return total;
}

std::string_view MoneyText(int kind) {
    switch (kind) {
        case record::kCash:
            return "Kontanter";
        case record::kChange:
            return "Tilbake";
        case record::kBank:
            return "Bank";
        case record::kCreditSale:
            return "Kredittsalg";
        case record::kPrepayment:
            return "Forskuddsbetaling";
        case record::kInvoicePayment:
            return "Betaling";
        case record::kIou:
            return kIouName;
        default:
            return kCardNames.at(static_cast<std::size_t>(kind - record::kFirstCard));
    }
}

ReceiptLine MoneyLine(int kind, std::int64_t amount) {
    ReceiptLine line;
    line.kind = kind;
    line.description = MoneyText(kind);
    line.amount = amount;
    return line;
}

ReceiptLine RoundingLine(std::int64_t amount) {
    ReceiptLine line;
    line.kind = record::kRounding;
    line.productId = "Avrunding";
    line.description = "Avrunding";
    line.price = amount;
    line.amount = amount;
    return line;
}

// `part` of `whole` parts of an amount, halves away from zero.
std::int64_t Share(std::int64_t amount, std::int64_t whole) {
    const std::int64_t half = amount < 0 ? -whole / 2 : whole / 2;
    return (amount + half) / whole;
}

std::int64_t WholeKroner(std::int64_t amount) {
    return Share(amount, 100) * 100;
}

}  // namespace

std::span<const ReceiptKind> AllReceiptKinds() {
    return kKinds;
}

const ReceiptKind& PlainReceiptKind() {
    return kPlain;
}

bool ReceiptMaker::HasGoods(const ReceiptKind& kind) const {
    switch (kind.occasion) {
        case Occasion::Sale:
        case Occasion::Return:
        case Occasion::Exchange:
            return true;
        case Occasion::Prepayment:
            return false;
        case Occasion::InvoicePayment:
            return paymentsGoWithGoods_;
    }
    return false;
}

std::int64_t ReceiptMaker::MoneyRecords(const ReceiptKind& kind) {
    if (kind.occasion == Occasion::Exchange) return 1;  // the piece that comes back
    const bool isSale = kind.occasion == Occasion::Sale;
    if (kind.paidWith == record::kCash) return isSale ? 3 : 2;  // rounding, cash, change
    if (kind.paidWith == record::kIou) return isSale ? 2 : 1;   // the slip, and a card for the rest
    const bool isCustomerPayment = !isSale && kind.occasion != Occasion::Return;
    return isCustomerPayment ? 2 : 1;
}

std::int64_t ReceiptMaker::FewestRecords(const ReceiptKind& kind) const {
    return MoneyRecords(kind) + (HasGoods(kind) ? 1 : 0);
}

Receipt ReceiptMaker::Make(const ReceiptKind& kind, std::int64_t records) {
    Receipt receipt;
    receipt.salesType = kind.salesType;
    receipt.customer = ChooseCustomer(kind);
    if (receipt.customer != nullptr && random_.Chance(30)) {
        receipt.project = std::to_string(random_.Between(101, 119));
    }
    receipt.seller = static_cast<std::size_t>(
        random_.Between(1, static_cast<std::int64_t>(shop_.sellers.size())));
    if (kind.occasion == Occasion::Exchange) {
        AddExchange(receipt);
        return receipt;
    }
    if (HasGoods(kind)) {
        const int sign = kind.occasion == Occasion::Return ? -1 : 1;
        AddGoods(receipt, sign, records - MoneyRecords(kind));
    }
    AddCustomerPayment(receipt, kind);
    Pay(receipt, kind);
    return receipt;
}

// By name only where something stays on the customer's account, or by chance.
const Customer* ReceiptMaker::ChooseCustomer(const ReceiptKind& kind) {
    const bool needsCustomer = kind.salesType != 1 || kind.paidWith == record::kCreditSale ||
                               kind.occasion == Occasion::Prepayment ||
                               kind.occasion == Occasion::InvoicePayment;
    if (!needsCustomer && !random_.Chance(8)) return nullptr;
    // The first customer is the anonymous one.
    const auto last = static_cast<std::int64_t>(shop_.customers.size()) - 1;
    return &shop_.customers[static_cast<std::size_t>(random_.Between(1, last))];
}

// Thousandths of a kilogram or of a piece.
std::int64_t ReceiptMaker::ChooseQuantity(const Product& product) {
    if (product.isWeighed) return random_.Between(150, 2500);
    return random_.Chance(70) ? 1000 : random_.Between(2, 6) * 1000;
}

// The VAT class by its share of the sales, then a product of that class.
ReceiptLine ReceiptMaker::GoodsLine(int sign) {
    std::int64_t drawn = random_.Between(1, 100);
    std::size_t vat = 0;
    while (drawn > kVatClasses[vat].shareOfTheSales)
        drawn -= kVatClasses[vat++].shareOfTheSales;
    const Product& product = shop_.products[random_.Pick(shop_.productsByVat[vat])];

    ReceiptLine line;
    line.kind = product.isService ? record::kService : record::kGoods;
    line.productId = product.id;
    line.description = product.description;
    line.quantity = sign * ChooseQuantity(product);
    line.price = product.price;
    if (random_.Chance(10)) line.discount = random_.Between(1, 6) * 5;
    line.costPrice = product.costPrice;
    line.amount = Share(line.quantity * line.price * (100 - line.discount), 100000);
    line.vatCode = kVatClasses[vat].code;
    line.salesAccount = kVatClasses[vat].salesAccount;
    return line;
}

void ReceiptMaker::AddGoods(Receipt& receipt, int sign, std::int64_t count) {
    receipt.lines.reserve(static_cast<std::size_t>(count) + 3);
    for (std::int64_t i = 0; i < count; ++i)
        receipt.lines.push_back(GoodsLine(sign));
}

void ReceiptMaker::AddExchange(Receipt& receipt) {
    AddGoods(receipt, 1, 1);
    ReceiptLine back = receipt.lines.front();
    back.quantity = -back.quantity;
    back.amount = -back.amount;
    receipt.lines.push_back(std::move(back));
}

void ReceiptMaker::AddCustomerPayment(Receipt& receipt, const ReceiptKind& kind) {
    if (kind.occasion == Occasion::Prepayment) {
        receipt.lines.push_back(MoneyLine(record::kPrepayment, random_.Between(2, 60) * 5000));
    }
    if (kind.occasion == Occasion::InvoicePayment) {
        ReceiptLine line = MoneyLine(record::kInvoicePayment, random_.Between(100, 9000) * 100);
        line.text.append("F").append(std::to_string(random_.Between(20000, 29999)));
        receipt.lines.push_back(std::move(line));
    }
}

void ReceiptMaker::Pay(Receipt& receipt, const ReceiptKind& kind) {
    const std::int64_t total = TotalOf(receipt);
    if (kind.paidWith == record::kCash) {
        PayCash(receipt, total);
    } else if (kind.paidWith == record::kIou && total > 0) {
        PayWithSlip(receipt, total);
    } else {
        receipt.lines.push_back(MoneyLine(kind.paidWith, -total));
    }
}

// There are no coins below one krone.
void ReceiptMaker::PayCash(Receipt& receipt, std::int64_t total) {
    const std::int64_t due = WholeKroner(total);
    if (due != total) receipt.lines.push_back(RoundingLine(due - total));
    if (due <= 0) {
        receipt.lines.push_back(MoneyLine(record::kCash, -due));
        return;
    }
    constexpr std::int64_t kNotes[] = {100, 5000, 10000, 20000, 50000};  // 1 krone: the exact sum
    const std::int64_t note = random_.Pick(kNotes);
    const std::int64_t given = (due + note - 1) / note * note;
    receipt.lines.push_back(MoneyLine(record::kCash, -given));
    if (given > due) receipt.lines.push_back(MoneyLine(record::kChange, given - due));
}

// What the slip does not cover goes on a card.
void ReceiptMaker::PayWithSlip(Receipt& receipt, std::int64_t total) {
    const std::int64_t slip = std::min(total, random_.Between(1, 10) * 5000);
    receipt.lines.push_back(MoneyLine(record::kIou, -slip));
    if (slip < total) receipt.lines.push_back(MoneyLine(record::kFirstCard, slip - total));
}

}  // namespace demo
