#include "sap/payments.h"

#include <cmath>
#include <memory>
#include <optional>

#include "app/field_values.h"
#include "platform/date_text.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "sap/document.h"
#include "store/transaction_types.h"

namespace sap {

namespace {

using platform::Value;
using platform::sapdi::JournalEntries;
using platform::sapdi::JournalEntryLines;
using platform::sapdi::ObjectType;
using platform::sapdi::QueryResult;
namespace trans_type = store::trans_type;

constexpr int kLastQueriedType = 19;  // so no card is among them
constexpr const char* kPaymentQuery =
    "select * from Sales, SalesLines WHERE Sales.ID = SalesLines.SalesID and "
    "(SalesLines.TransType >=? and SalesLines.TransType <= ?) and SalesLines.SalesID = ?";

JournalEntries& NewPaymentEntry(const TransferContext& context) {
    context.objects.PaymentEntry = platform::sapdi::GetObject<JournalEntries>(
        *context.objects.SAPCompany, ObjectType::JournalEntries);
    return *context.objects.PaymentEntry;
}

void SetDates(JournalEntries& entry, const platform::DateTime& date) {
    entry.SetReferenceDate(date);
    entry.SetTaxDate(date);
    entry.SetDueDate(date);
}

void SetMemo(JournalEntries& entry, int paymentType, std::int32_t sale) {
    const bool isInvoicePayment = paymentType == trans_type::kInvoicePayment;
    entry.SetMemo((isInvoicePayment ? "Betaling av faktura på salg " : "Betaling av salg ") +
                  std::to_string(sale) + " fra Kassovia.");
}

// What is 0 or above goes to the credit side, what is 0 or below to the debit side.
void SetCustomerSide(JournalEntryLines& line, double amount) {
    line.SetDebit(amount <= 0 ? std::fabs(amount) : 0);
    line.SetCredit(amount >= 0 ? std::fabs(amount) : 0);
}

void SetPaymentSide(JournalEntryLines& line, double amount) {
    SetCustomerSide(line, -amount);
}

void PaymentAccountPrompt(const TransferContext& context, JournalEntryLines& line,
                          std::int32_t sale) {
    const std::string answer = context.theOperator.Prompt(
        {"Kontonummer",
         "Mangler kontonummer for betalingsmiddel på bong# " + std::to_string(sale) +
             ". Dokument# " + std::to_string(context.objects.SalesDocument->DocNum()) +
             ".\nHvilken balansekonto skal betalingen inn på?",
         "9999", false});
    line.SetAccountCode(platform::ToText(app::NzNumber(answer)));
}

// The field of the Options row that holds the account of a means of payment, if it has one there.
const char* AccountFieldOf(int paymentType) {
    if (paymentType < trans_type::kCash) return nullptr;
    const std::optional<store::Ledger> ledger = store::LedgerOf(paymentType);
    return ledger ? ledger->accountField : nullptr;
}

void SetPaymentAccount(const TransferContext& context, JournalEntryLines& line, int paymentType,
                       std::int32_t sale) {
    if (const char* field = AccountFieldOf(paymentType)) {
        line.SetAccountCode(platform::ToText(context.Options.Field(field)));
    } else {
        PaymentAccountPrompt(context, line, sale);
    }
}

// Asks for the account where the one that was chosen is 0, also when it has just been asked for.
void AskForMissingAccount(const TransferContext& context, JournalEntryLines& line,
                          std::int32_t sale) {
    if (platform::ToDouble(line.AccountCode()) == 0) PaymentAccountPrompt(context, line, sale);
}

void SetCustomerAccount(const TransferContext& context, JournalEntryLines& line,
                        const std::string& customerCode) {
    line.SetAccountCode(context.objects.CustomerPartner->DebitorAccount());
    line.SetShortName(customerCode);
}

// A payment line with its sale, as the query joins them.
class PaymentRow {
  public:
    explicit PaymentRow(const QueryResult& rows) : rows_(rows) {}

    [[nodiscard]] Value SalesDate() const { return rows_.QueryField("SalesLines.SalesDate"); }
    [[nodiscard]] Value TransType() const { return rows_.QueryField("TransType"); }
    [[nodiscard]] Value CustomerID() const { return rows_.QueryField("CustomerID"); }
    [[nodiscard]] Value Amount() const { return rows_.QueryField("SalesLines.Amount"); }

  private:
    const QueryResult& rows_;
};

void AddReceiptPayment(const TransferContext& context, JournalEntries& entry, const PaymentRow& row,
                       std::int32_t saleId) {
    SetDates(entry, platform::ToDate(app::YmdToDateText(platform::ToInt32(row.SalesDate()))));
    const std::int32_t paymentType = platform::ToInt32(row.TransType());
    SetMemo(entry, paymentType, saleId);
    JournalEntryLines& line = entry.Lines();
    if (paymentType == trans_type::kInvoicePayment) {
        const std::string customerID = platform::ToText(row.CustomerID());
        (void)context.objects.CustomerPartner->GetByKey(customerID);
        SetCustomerAccount(context, line, customerID);
    } else {
        SetPaymentAccount(context, line, paymentType, saleId);
    }
    AskForMissingAccount(context, line, saleId);
    SetCustomerSide(line, platform::ToDouble(row.Amount()));
    line.Add();
}

// kept: boxes-without-a-title. The company's reason follows in one with a title.
void TellFailure(const TransferContext& context, std::int32_t sale) {
    context.theOperator.Show({std::nullopt,
                              "Klarte ikke opprette betaling for bong " + std::to_string(sale) +
                                  ". Noter ned nummeret og feilmelding.",
                              platform::Icon::None});
}

}  // namespace

void CreateReceiptPayments(const TransferContext& context,
                           platform::database::Database& storeDatabase,
                           const std::int32_t& saleId) {
    CreateCustomerPartner(context);
    JournalEntries& entry = NewPaymentEntry(context);
    const auto rows =
        storeDatabase.OpenQuery(kPaymentQuery, {trans_type::kCash, kLastQueriedType, saleId});
    // kept: payment-only-receipt. The rows are taken as a query result of the SAP interface, which
    // a recordset of the store database is not: with the real one every call ends here.
    auto* const result = dynamic_cast<QueryResult*>(rows.get());
    if (result == nullptr) {
        throw platform::RuntimeError(platform::error_number::kTypeMismatch,
                                     "Type mismatch: the payments of sale " +
                                         std::to_string(saleId) +
                                         " are no query result of the SAP company");
    }
    if (result->QueryRecordCount() <= 0) return;
    for (; !result->QueryEof(); result->QueryMoveNext()) {
        AddReceiptPayment(context, entry, PaymentRow(*result), saleId);
    }
    if (entry.Add() != 0) {
        TellFailure(context, saleId);
        entry.SaveXML(std::to_string(entry.Number()) + ".xml");
        context.DataSetHasErrors = true;
    }
    ReportLastError(context, "Feil:");
}

void CreateDocumentPayment(const TransferContext& context, std::int16_t paymentType, double amount,
                           const std::string& customerCode, const std::int32_t& saleNumber) {
    JournalEntries& entry = NewPaymentEntry(context);
    SetDates(entry, context.objects.SalesDocument->DocDate());
    SetMemo(entry, paymentType, saleNumber);

    JournalEntryLines& line = entry.Lines();
    SetCustomerAccount(context, line, customerCode);
    SetCustomerSide(line, amount);
    line.Add();

    SetPaymentAccount(context, line, paymentType, saleNumber);
    AskForMissingAccount(context, line, saleNumber);
    SetPaymentSide(line, amount);
    line.Add();

    if (entry.Add() != 0) {
        TellFailure(context, saleNumber);
        context.DataSetHasErrors = true;
    }
    ReportLastError(context, "Feil:");
}

}  // namespace sap
