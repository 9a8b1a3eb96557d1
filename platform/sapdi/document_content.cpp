#include "platform/sapdi/document_content.h"

#include <algorithm>
#include <array>

#include "platform/date_text.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/sapdi/code_rules.h"
#include "platform/sapdi/error_codes.h"

namespace platform::sapdi {
namespace {

constexpr std::array<std::string_view, DocumentContent::kDocNum + 1> kHeadColumns = {
    "CardCode", "CardName", "NumAtCard", "Ref1",    "Ref2",  "DocDate",
    "TaxDate",  "Comments", "OwnRef",    "SlpCode", "DocNum"};

constexpr std::array<std::string_view, DocumentContent::kDepartment + 1> kLineColumns = {
    "ItemCode", "Dscription", "Quantity", "Price", "DiscPrcnt", "AcctCode", "Project", "OcrCode"};

constexpr HeadAndLinesNames Names(ObjectType type, std::string_view head, std::string_view lines) {
    return {type, head, lines, kHeadColumns, kLineColumns};
}

constexpr std::array kDocuments = {
    Names(ObjectType::Invoices, "OINV", "INV1"), Names(ObjectType::CreditNotes, "ORIN", "RIN1"),
    Names(ObjectType::DeliveryNotes, "ODLN", "DLN1"), Names(ObjectType::Returns, "ORDN", "RDN1"),
    Names(ObjectType::Orders, "ORDR", "RDR1")};

const HeadAndLinesNames& NamesOf(ObjectType type) {
    const auto* const names = std::ranges::find(kDocuments, type, &HeadAndLinesNames::type);
    if (names != kDocuments.end()) return *names;
    throw RuntimeError(error_number::kInvalidArgument,
                       "Object type " + std::to_string(static_cast<int>(type)) + " is no document");
}

}  // namespace

DocumentContent::DocumentContent(ObjectType type) : content_(NamesOf(type)) {}

std::string DocumentContent::CardCode() const {
    return std::string(TextOf(content_.Head()[kCardCode]));
}

void DocumentContent::SetDocDate(const DateTime& date) {
    SetText(kDocDate, IsoDate(date));
}

// Of a document that was loaded: a text that is no date is the date of an unset DateTime, and a
// time behind the date does not count.
DateTime DocumentContent::DocDate() const {
    constexpr std::size_t kDateLength = 10;
    const std::string_view text = TextOf(content_.Head()[kDocDate]);
    return ParseIsoDate(text.substr(0, kDateLength)).value_or(DateTime{});
}

void DocumentContent::SetTaxDate(const DateTime& date) {
    SetText(kTaxDate, IsoDate(date));
}

void DocumentContent::SaveXML(std::string_view fileName) {
    WriteWholeFile(fileName, content_.ToXml());
}

void DocumentContent::RequireCustomerAndItems() const {
    RequireNotBlank(kCustomerCodeNoun, TextOf(content_.Head()[kCardCode]));
    const std::vector<Row>& lines = content_.Lines();
    // A document begins with one empty line: left empty it is none.
    if (lines.size() == 1 && std::ranges::all_of(lines.front(), &Value::IsNull)) {
        throw RuntimeError(error_code::kInvalidValue, "The document has no lines");
    }
    for (std::size_t i = 0; i < lines.size(); ++i)
        RequireNotBlank(kItemCodeNoun, TextOf(lines[i][kItemCode]), i);
}

}  // namespace platform::sapdi
