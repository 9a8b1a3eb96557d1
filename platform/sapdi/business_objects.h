// The SAP Business One objects that a transfer uses, as small interfaces under their public names,
// so that a second connector can stand beside the local company. Texts and amounts go in as they
// are; what was never set stays unset. Amounts and prices are in the company's currency, quantities
// in the item's unit, discounts in per cent.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace platform::sapdi {

// The public object-type numbers.
enum class ObjectType {
    BusinessPartners = 2,
    Items = 4,
    Invoices = 13,
    CreditNotes = 14,
    DeliveryNotes = 15,
    Returns = 16,
    Orders = 17,
    JournalEntries = 30,
    Recordset = 300,
};

// What the company's factory gives; GetObject in company.h makes it its own kind.
class BusinessObject {
  public:
    virtual ~BusinessObject() = default;
};

class BusinessPartners : public BusinessObject {
  public:
    virtual void SetCardCode(std::string_view code) = 0;
    virtual void SetCardName(std::string_view name) = 0;
    virtual void SetPhone1(std::string_view number) = 0;
    virtual void SetFax(std::string_view number) = 0;
    virtual void SetEmailAddress(std::string_view address) = 0;
    virtual void SetAddress(std::string_view street) = 0;
    virtual void SetBlock(std::string_view secondAddress) = 0;
    virtual void SetCity(std::string_view city) = 0;
    virtual void SetZipCode(std::string_view postalCode) = 0;
    [[nodiscard]] virtual std::string DebitorAccount() const = 0;  // receivables account

    [[nodiscard]] virtual std::int32_t Add() = 0;     // 0: added; else see Company::GetLastError
    [[nodiscard]] virtual std::int32_t Update() = 0;  // likewise
    // Loads the partner; false, with the object as it was, where there is none.
    virtual bool GetByKey(std::string_view cardCode) = 0;
};

// The prices of an item: one line for each price list of the company, in list order, from 0.
class ItemPriceList {
  public:
    virtual ~ItemPriceList() = default;
    virtual void SetCurrentLine(std::int32_t line) = 0;  // error 9 where there is no such line
    virtual void SetPrice(double price) = 0;
};

class Items : public BusinessObject {
  public:
    virtual void SetItemCode(std::string_view code) = 0;
    virtual void SetItemName(std::string_view name) = 0;
    [[nodiscard]] virtual ItemPriceList& PriceList() = 0;

    [[nodiscard]] virtual std::int32_t Add() = 0;
    [[nodiscard]] virtual std::int32_t Update() = 0;
    virtual bool GetByKey(std::string_view itemCode) = 0;
};

// The lines of a document. A new document has one empty line, which is current.
class DocumentLines {
  public:
    virtual ~DocumentLines() = default;
    virtual void Add() = 0;                              // appends an empty line, makes it current
    virtual void SetCurrentLine(std::int32_t line) = 0;  // from 0; error 9 where there is none
    virtual void SetItemCode(std::string_view code) = 0;
    virtual void SetItemDescription(std::string_view text) = 0;
    virtual void SetAccountCode(std::string_view code) = 0;
    virtual void SetProjectCode(std::string_view code) = 0;
    virtual void SetCostingCode(std::string_view department) = 0;
    virtual void SetQuantity(double quantity) = 0;
    virtual void SetUnitPrice(double price) = 0;
    virtual void SetDiscountPercent(double discount) = 0;
};

// An invoice, credit note, delivery, return or order.
class Documents : public BusinessObject {
  public:
    virtual void SetCardCode(std::string_view code) = 0;
    [[nodiscard]] virtual std::string CardCode() const = 0;
    virtual void SetCardName(std::string_view name) = 0;
    virtual void SetNumAtCard(std::string_view customerReference) = 0;
    virtual void SetReference1(std::string_view reference) = 0;
    virtual void SetReference2(std::string_view reference) = 0;
    virtual void SetDocDate(const DateTime& date) = 0;
    [[nodiscard]] virtual DateTime DocDate() const = 0;
    virtual void SetTaxDate(const DateTime& date) = 0;
    virtual void SetComments(std::string_view remarks) = 0;
    virtual void SetOwnReference(std::string_view reference) = 0;
    virtual void SetSalesPersonCode(std::int32_t code) = 0;
    [[nodiscard]] virtual std::int32_t DocNum() const = 0;  // 0 before it is added
    [[nodiscard]] virtual DocumentLines& Lines() = 0;

    [[nodiscard]] virtual std::int32_t Add() = 0;
    virtual bool GetByKey(std::int32_t docEntry) = 0;
    virtual void SaveXML(std::string_view fileName) = 0;  // replaces the file
};

class JournalEntryLines {
  public:
    virtual ~JournalEntryLines() = default;
    virtual void Add() = 0;
    virtual void SetAccountCode(std::string_view code) = 0;
    [[nodiscard]] virtual std::string AccountCode() const = 0;
    virtual void SetShortName(std::string_view partnerCode) = 0;
    virtual void SetDebit(double amount) = 0;
    virtual void SetCredit(double amount) = 0;
};

class JournalEntries : public BusinessObject {
  public:
    virtual void SetReferenceDate(const DateTime& date) = 0;
    virtual void SetTaxDate(const DateTime& date) = 0;
    virtual void SetDueDate(const DateTime& date) = 0;
    virtual void SetMemo(std::string_view memo) = 0;
    [[nodiscard]] virtual std::int32_t Number() const = 0;  // 0 before it is added
    [[nodiscard]] virtual JournalEntryLines& Lines() = 0;

    [[nodiscard]] virtual std::int32_t Add() = 0;
    virtual void SaveXML(std::string_view fileName) = 0;
};

// A query on the company database and its rows.
class QueryResult {
  public:
    virtual ~QueryResult() = default;
    [[nodiscard]] virtual std::int32_t QueryRecordCount() const = 0;
    [[nodiscard]] virtual bool QueryEof() const = 0;
    [[nodiscard]] virtual Value QueryField(std::string_view name) const = 0;
    virtual void QueryMoveNext() = 0;
};

class Query : public BusinessObject, public QueryResult {
  public:
    virtual void DoQuery(std::string_view sql) = 0;  // any one statement
};

}  // namespace platform::sapdi
