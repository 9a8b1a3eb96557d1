#include "fileexport/master_data.h"

#include <memory>
#include <span>
#include <string>

#include "platform/comparison.h"
#include "platform/database/batch.h"
#include "platform/norwegian.h"
#include "store/master_data.h"
#include "store/transaction_types.h"

namespace fileexport {

namespace {

using platform::TextFile;
using platform::Value;
using platform::database::ClientRecordset;
using platform::database::Database;
using platform::database::Record;

// kept: empty-lines. The customers' section begins without an empty line, the others with one.
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
    {"SELECT * FROM Customers WHERE Status <> ?",
     "@Actor (=CustNo, Nm, Ad1, Ad2, Ad3, Ad4, PNo, PArea, Phone, Fax, CustPrGr, CustPrG2, MailAd, "
     "CustTotD)",
     FirstLine::FieldList, kCustomerColumns, LastValue::None},
    {"SELECT * FROM Products WHERE Status <> ?",
     "@Prod (=ProdNo, EANItmNo, Descr, ProdPrGr, ProdPrG2)", FirstLine::EmptyLine, kProductColumns,
     LastValue::None},
    {"SELECT * FROM PriceMatrix WHERE Status <> ?", "@PrDcMat (=ProdNo, SalePr, CstPr, Gross)",
     FirstLine::EmptyLine, kPriceMatrixColumns, LastValue::GrossSwitch},
};

void AppendQuoted(std::string& line, const std::string& text) {
    if (!line.empty()) line += ' ';
    line += '"' + text + '"';
}

// kept: untrimmed-master-data. The values keep their blanks, those of vouchers lose them.
std::string RecordLine(const Record& row, const Section& section, const Value& lastValue) {
    std::string line;
    for (const char* column : section.columns) {
        AppendQuoted(line, platform::ToText(row.Get(column)));
    }
    if (!lastValue.IsNull()) AppendQuoted(line, platform::ToText(lastValue));
    return line;
}

// kept: gross-of-null. "0" stands for prices without VAT; an empty switch counts as with.
Value GrossSwitch(const store::Options& options) {
    return platform::Equals(options.GrossPrices(), 0) ? "0" : "1";
}

void WriteRecords(const Section& section, TextFile& voucherFile, ClientRecordset& rows,
                  const store::Options& options) {
    if (section.firstLine == FirstLine::EmptyLine) voucherFile.WriteLine("");
    voucherFile.WriteLine(section.fieldList);
    voucherFile.WriteLine("");

    const Value lastValue =
        section.lastValue == LastValue::GrossSwitch ? GrossSwitch(options) : Value();
    for (; !rows.IsEof(); rows.MoveNext())
        voucherFile.WriteLine(RecordLine(rows, section, lastValue));
}

void ResetMarks(ClientRecordset& rows) {
    for (rows.MoveFirst(); !rows.IsEof(); rows.MoveNext())
        store::ResetStatus(rows);
}

std::unique_ptr<ClientRecordset> ChangedRows(const Section& section, Database& storeDatabase) {
    return storeDatabase.OpenQuery(section.query, {store::master_status::kNothingToDo});
}

// A day with nothing to mark does not wait for those who write to the store.
bool HasChangedRows(const Section& section, Database& storeDatabase) {
    return !ChangedRows(section, storeDatabase)->IsEof();
}

void WriteSection(const Section& section, TextFile& voucherFile, Database& storeDatabase,
                  const store::Options& options) {
    if (!HasChangedRows(section, storeDatabase)) return;
    // Nobody changes a row between its reading and its mark: such a change would go unsent.
    platform::database::Batch batch(storeDatabase);
    const auto rows = ChangedRows(section, storeDatabase);
    if (rows->IsEof()) return;
    WriteRecords(section, voucherFile, *rows, options);
    // No mark goes whose record a full disk or a power failure could still take.
    voucherFile.Sync();
    ResetMarks(*rows);
    batch.Commit();
}

}  // namespace

// kept: marks-stay-reset. Also after a No at the end.
void WriteMasterData(TextFile& voucherFile, Database& storeDatabase,
                     const store::Options& options) {
    options.Refresh();
    for (const Section& section : kSections)
        WriteSection(section, voucherFile, storeDatabase, options);
}

}  // namespace fileexport
