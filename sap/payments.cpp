#include "sap/payments.h"

#include <cmath>
#include <memory>
#include <optional>

#include "app/field_values.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "store/transaction_types.h"

namespace sap {

namespace {

using platform::Value;
using platform::sapdi::JournalEntries;
using platform::sapdi::JournalEntryLines;
using platform::sapdi::ObjectType;
using platform::sapdi::QueryResult;
namespace trans_type = store::trans_type;

constexpr const char* kPaymentQuery =
    "select * from Sales, SalesLines WHERE Sales.ID = SalesLines.SalesID and "
    "(SalesLines.TransType >=10 and SalesLines.TransType <= 19) and SalesLines.SalesID = ";

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
        line.SetAccountCode(platform::ToText(context.Option(field)));
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

void AddReceiptPayment(const TransferContext& context, JournalEntries& entry,
                       const QueryResult& row, std::int32_t saleId) {
    SetDates(entry, platform::ToDate(app::YmdToDateText(
                        platform::ToInt32(row.QueryField("SalesLines.SalesDate")))));
    const std::int32_t paymentType = platform::ToInt32(row.QueryField("TransType"));
    SetMemo(entry, paymentType, saleId);
    JournalEntryLines& line = entry.Lines();
    if (paymentType == trans_type::kInvoicePayment) {
        const std::string customerID = platform::ToText(row.QueryField("CustomerID"));
        (void)context.objects.CustomerPartner->GetByKey(customerID);
        SetCustomerAccount(context, line, customerID);
    } else {
        SetPaymentAccount(context, line, paymentType, saleId);
    }
    AskForMissingAccount(context, line, saleId);
    SetCustomerSide(line, platform::ToDouble(row.QueryField("SalesLines.Amount")));
    line.Add();
}

void TellFailure(const TransferContext& context, std::int32_t sale) {
    context.theOperator.Show({std::nullopt,
                              "Klarte ikke opprette betaling for bong " + std::to_string(sale) +
                                  ". Noter ned nummeret og feilmelding.",
                              platform::Icon::None});
}

}  // namespace

void CreateReceiptPayments(const TransferContext& context, const std::int32_t& saleId) {
    context.objects.CustomerPartner = platform::sapdi::GetObject<platform::sapdi::BusinessPartners>(
        *context.objects.SAPCompany, ObjectType::BusinessPartners);
    JournalEntries& entry = NewPaymentEntry(context);
    const auto rows =
        context.databases.StoreDatabase->OpenQuery(kPaymentQuery + std::to_string(saleId));
    // The rows are taken as a query result of the SAP interface, which a recordset of the store
    // database is not: with the real database every call ends here.
    auto* const result = dynamic_cast<QueryResult*>(rows.get());
    if (result == nullptr) {
        throw platform::RuntimeError(platform::error_number::kTypeMismatch,
                                     "Type mismatch: the payments of sale " +
                                         std::to_string(saleId) +
                                         " are no query result of the SAP company");
    }
    if (result->QueryRecordCount() <= 0) return;
    for (; !result->QueryEof(); result->QueryMoveNext()) {
        AddReceiptPayment(context, entry, *result, saleId);
    }
    if (entry.Add() != 0) {
        TellFailure(context, saleId);
        entry.SaveXML(std::to_string(entry.Number()) + ".xml");
        context.runState.DataSetHasErrors = true;
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
        context.runState.DataSetHasErrors = true;
    }
    ReportLastError(context, "Feil:");
}

}  // namespace sap
