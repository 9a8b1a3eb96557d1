#include "fileexport/master_data.h"

#include <span>
#include <string>

#include "platform/database/batch.h"
#include "platform/norwegian.h"
#include "store/transaction_types.h"

namespace fileexport {

namespace {

using platform::Recordset;
using platform::TextFile;
using platform::Value;

enum class FirstLine { FieldList, EmptyLine };
enum class LastValue { None, GrossSwitch };

struct Section {
    const char* query;
    const char* fieldList;
    FirstLine firstLine;
    std::span<const char* const> columns;
    LastValue lastValue;
};

constexpr const char* kCustomerColumns[] = {
    "ID",    "Name", "Address1", "Address2", "Address3", "Address4", "PostalCode", "PostalAddress",
    "Phone", "Fax",  "CustPrGr", "CustPrG2", "EMail",    "Discount"};
constexpr const char* kProductColumns[] = {"ID", "BarCode", "Description", "ProdPrGr", "ProdPrG2"};
constexpr const char* kPriceMatrixColumns[] = {"ProdNo", "SalePr", "CstPr"};

constexpr Section kSections[] = {
    {"SELECT * FROM Customers WHERE Status <> 0",
     "@Actor (=CustNo, Nm, Ad1, Ad2, Ad3, Ad4, PNo, PArea, Phone, Fax, CustPrGr, CustPrG2, MailAd, "
     "CustTotD)",
     FirstLine::FieldList, kCustomerColumns, LastValue::None},
    {"SELECT * FROM Products WHERE Status <> 0",
     "@Prod (=ProdNo, EANItmNo, Descr, ProdPrGr, ProdPrG2)", FirstLine::EmptyLine, kProductColumns,
     LastValue::None},
    {"SELECT * FROM PriceMatrix WHERE Status <> 0", "@PrDcMat (=ProdNo, SalePr, CstPr, Gross)",
     FirstLine::EmptyLine, kPriceMatrixColumns, LastValue::GrossSwitch},
};

void AppendQuoted(std::string& line, const std::string& text) {
    if (!line.empty()) line += ' ';
    line += '"' + text + '"';
}

// The columns as they are stored, untrimmed and unescaped, then the section's own last value.
std::string RecordLine(const Recordset& row, const Section& section, const Value& lastValue) {
    std::string line;
    for (const char* column : section.columns) {
        AppendQuoted(line, platform::ToText(row.Get(column)));
    }
    if (!lastValue.IsNull()) AppendQuoted(line, platform::ToText(lastValue));
    return line;
}

void MarkAsTransferred(Recordset& row) {
    row.Edit();
    row.Set("Status", store::master_status::kNothingToDo);
    row.Update();
}

// "0" where the store's prices are without VAT; an empty switch counts as with.
Value GrossSwitch(const Recordset& options) {
    return platform::Equals(options.Get("GrossPrices"), 0) ? "0" : "1";
}

void WriteSection(const Section& section, TextFile& voucherFile,
                  const store::Databases& databases) {
    const auto rows = databases.StoreDatabase->OpenQuery(section.query);
    if (rows->IsEof()) return rows->Close();

    if (section.firstLine == FirstLine::EmptyLine) voucherFile.WriteLine("");
    voucherFile.WriteLine(section.fieldList);
    voucherFile.WriteLine("");

    const Value lastValue = section.lastValue == LastValue::GrossSwitch
                                ? GrossSwitch(*databases.OptionsTable)
                                : Value();
    platform::Batch batch(*databases.StoreDatabase);
    for (rows->MoveFirst(); !rows->IsEof(); rows->MoveNext()) {
        voucherFile.WriteLine(RecordLine(*rows, section, lastValue));
        MarkAsTransferred(*rows);
    }
    batch.Commit();
    rows->Close();
}

}  // namespace

void WriteMasterData(TextFile& voucherFile, const store::Databases& databases) {
    for (const Section& section : kSections)
        WriteSection(section, voucherFile, databases);
}

}  // namespace fileexport
