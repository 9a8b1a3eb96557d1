#include "store/transaction_types.h"

namespace store {

namespace {

struct LedgerRow {
    int transType;
    Ledger ledger;
};

constexpr const char* kCustomerAccount = nullptr;

constexpr LedgerRow kLedgers[] = {
    {trans_type::kRounding, {"Long1", "Avrunding", false}},
    {trans_type::kSales1, {"SalesAccount", "Salg", false}},
    {trans_type::kSales2, {"SalesAccount", "Salg", false}},
    {trans_type::kCash, {"CashAccount", "Kontanter", false}},
    {trans_type::kChange, {"CashAccount", "Tilbake", false}},
    {trans_type::kBank, {"BankAccount", "Bank", false}},
    {trans_type::kCreditSale, {kCustomerAccount, "Kredittsalg", false}},
    {trans_type::kPrepayment, {kCustomerAccount, "Forskuddsbetaling", false}},
    {trans_type::kInvoicePayment, {kCustomerAccount, "Betaling", false}},
    {trans_type::kIOU, {"IOUAccount", "IOUName", true}},
    {trans_type::kFirstCard, {"Card1Account", "Card1Name", true}},
    {trans_type::kFirstCard + 1, {"Card2Account", "Card2Name", true}},
    {trans_type::kFirstCard + 2, {"Card3Account", "Card3Name", true}},
    {trans_type::kFirstCard + 3, {"Card4Account", "Card4Name", true}},
    {trans_type::kFirstCard + 4, {"Card5Account", "Card5Name", true}},
    {trans_type::kFirstCard + 5, {"Card6Account", "Card6Name", true}},
    {trans_type::kLastCard, {"Card7Account", "Card7Name", true}},
};

}  // namespace

platform::Value Ledger::TextFrom(const Options& options) const {
    return textIsField ? options.Field(text) : platform::Value(text);
}

std::optional<Ledger> LedgerOf(int transType) {
    for (const LedgerRow& row : kLedgers) {
        if (row.transType == transType) return row.ledger;
    }
    return std::nullopt;
}

}  // namespace store
