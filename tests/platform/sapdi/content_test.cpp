#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/sapdi/document_content.h"
#include "platform/sapdi/journal_entry_content.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/temp_folder.h"

namespace platform::sapdi {
namespace {

using support::ExpectError;

// The objects of a connector that reaches no company.
class Document : public DocumentContent {
  public:
    explicit Document(ObjectType type = ObjectType::Invoices) : DocumentContent(type) {}
    using DocumentContent::Content;
    using DocumentContent::RequireCustomerAndItems;
    [[nodiscard]] std::int32_t Add() override { return -1; }
    bool GetByKey(std::int32_t) override { return false; }
};

class JournalEntry : public JournalEntryContent {
  public:
    using JournalEntryContent::FilledLines;
    using JournalEntryContent::RequireBalance;
    [[nodiscard]] std::int32_t Add() override { return -1; }
};

// The description of the error -5002 that `check` gives; empty without an error.
template <class Check>
std::string Refusal(Check&& check) {
    try {
        check();
        return {};
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), -5002);
        return error.Description();
    }
}

// The values of a column, parted by `|`.
std::string ColumnOf(std::span<const Row> rows, std::size_t column) {
    std::string text;
    for (const Row& row : rows)
        text.append(&row == rows.data() ? "" : "|").append(*row[column].AsText());
    return text;
}

constexpr const char* kDocumentXml = R"(<?xml version="1.0" encoding="UTF-8"?>
<BOM>
  <BO>
    <AdmInfo>
      <Object>13</Object>
    </AdmInfo>
    <OINV>
      <row>
        <CardCode>1000</CardCode>
        <CardName>Bø</CardName>
        <TaxDate>2005-11-30</TaxDate>
        <Comments></Comments>
        <SlpCode>-1</SlpCode>
      </row>
    </OINV>
    <INV1>
      <row>
        <ItemCode>&lt;te&gt; &amp; �'kake'</ItemCode>
        <Dscription>two&#13;
lines</Dscription>
        <Quantity>-2</Quantity>
        <Price>0.1</Price>
        <DiscPrcnt>0.3333333333333333</DiscPrcnt>
        <AcctCode>3000</AcctCode>
      </row>
      <row>
        <ItemCode>te</ItemCode>
      </row>
    </INV1>
  </BO>
</BOM>
)";

TEST(Content, RendersWhatWasSetUnderTheNamesOfTheTables) {
    Document document;
    document.SetCardCode("1000");
    document.SetCardName("Bø");
    document.SetTaxDate({2005, 11, 30, 14, 7, 33});
    document.SetComments("");
    document.SetSalesPersonCode(-1);
    document.Lines().SetItemCode("<te> & \x01'kake'");
    document.Lines().SetItemDescription("two\r\nlines");
    document.Lines().SetAccountCode("3000");
    document.Lines().SetQuantity(-2);
    document.Lines().SetUnitPrice(0.1);
    document.Lines().SetDiscountPercent(1.0 / 3);
    document.Lines().Add();
    document.Lines().SetItemCode("te");

    const support::TempFolder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    folder.Write("SAP_ERR_1_17.xml", std::string(9000, 'x'));
    document.SaveXML("SAP_ERR_1_17.xml");
    std::filesystem::current_path(before);
    EXPECT_EQ(folder.Read("SAP_ERR_1_17.xml"), kDocumentXml);
    ExpectError(error_number::kPathNotFound,
                [&] { document.SaveXML(folder.File("missing") + "/x.xml"); });
}

TEST(Content, FillsTheLineThatIsCurrent) {
    Document document(ObjectType::Orders);
    DocumentLines& lines = document.Lines();
    lines.SetItemCode("first");
    lines.Add();
    lines.SetItemCode("second");
    lines.SetCurrentLine(0);
    lines.SetItemCode("1st");
    for (const int place : {-1, 2}) {
        const std::string text =
            ExpectError(error_number::kIndexOutOfRange, [&] { lines.SetCurrentLine(place); });
        EXPECT_EQ(text, "RDR1: there is no line " + std::to_string(place));
    }
    lines.SetItemDescription("still the first");
    lines.Add();
    lines.SetItemCode("third");
    EXPECT_EQ(ColumnOf(document.Content().Lines(), Document::kItemCode), "1st|second|third");
    EXPECT_EQ(ColumnOf(std::span(document.Content().Lines()).first(1), Document::kDescription),
              "still the first");
}

TEST(Content, TakesWhatWasLoadedForItsOwn) {
    const std::pair<std::string_view, DateTime> dates[] = {
        {"2005-02-03", {2005, 2, 3}},
        {"2005-02-03 14:30:00", {2005, 2, 3}},
        {"2005-02-30", {}},
        {"3.2.2005", {}},
    };
    for (const auto& [text, date] : dates) {
        Document document;
        document.Lines().Add();
        document.Lines().SetItemCode("te");
        Row head(Document::kDocNum + 1);
        head[Document::kDocDate] = text;
        head[Document::kDocNum] = 17;
        document.Content().Replace(std::move(head), {});
        EXPECT_EQ(document.DocDate(), date) << text;
        EXPECT_EQ(document.DocNum(), 17);
        document.Lines().SetItemCode("kaffe");
        EXPECT_EQ(ColumnOf(document.Content().Lines(), Document::kItemCode), "kaffe");
    }
}

TEST(Content, AsksADocumentForItsCustomerItsLinesAndTheirItems) {
    const struct {
        std::string_view customer;
        std::vector<std::string_view> items;  // empty: not set
        std::string_view text;
    } cases[] = {
        {"", {}, "Customer code is missing"},
        {"  ", {" "}, "Customer code is missing"},
        {"1000", {}, "The document has no lines"},
        {"1000", {" "}, "Line 1: Item code is missing"},
        {"1000", {"", "te"}, "Line 1: Item code is missing"},
        {"1000", {"te", " ", ""}, "Line 2: Item code is missing"},
        {"1000", {"te", "te"}, ""},
    };
    for (const auto& c : cases) {
        Document document;
        document.SetCardCode(c.customer);
        for (std::size_t i = 0; i < c.items.size(); ++i) {
            if (i > 0) document.Lines().Add();
            if (!c.items[i].empty()) document.Lines().SetItemCode(c.items[i]);
        }
        EXPECT_EQ(Refusal([&] { document.RequireCustomerAndItems(); }), c.text);
    }
    ExpectError(error_number::kInvalidArgument, [] { const Document item(ObjectType::Items); });
}

TEST(Content, BalancesAJournalEntryToFourDecimals) {
    const struct {
        std::vector<std::pair<double, double>> lines;  // debit, credit
        std::string_view text;
    } cases[] = {
        {{{0, 0.3}, {0.1, 0}, {0.2, 0}}, ""},
        {{{0.00001, 0}}, ""},
        {{{-5, 0}, {0, -5}}, ""},
        {{{0.0001, 0}}, "Unbalanced transaction: debit 0,0001, credit 0"},
        {{{100, 0}, {0, 99.99}}, "Unbalanced transaction: debit 100, credit 99,99"},
        {{{1e300, 0}, {0, 1e300}}, "Amount 1E+300 is out of range"},
        {{{100, 0}, {0, -2e10}}, "Amount -20000000000 is out of range"},
    };
    for (const auto& c : cases) {
        JournalEntry entry;
        for (const auto& [debit, credit] : c.lines) {
            if (debit != 0) entry.Lines().SetDebit(debit);
            if (credit != 0) entry.Lines().SetCredit(credit);
            entry.Lines().Add();
        }
        EXPECT_EQ(Refusal([&] { entry.RequireBalance(); }), c.text);
    }
    JournalEntry entry;
    entry.Lines().SetDebit(std::numeric_limits<double>::quiet_NaN());
    EXPECT_NE(Refusal([&] { entry.RequireBalance(); }), "");
}

TEST(Content, LeavesOutTheLinesThatWereBegunAndNeverFilled) {
    const struct {
        std::string_view account, shortName;
        double debit, credit;
        std::size_t count;
    } cases[] = {
        {"1900", "", 0, 0, 2}, {"", "1000", 0, 0, 2}, {"", "", 0.00001, 0, 2},
        {"", "", 0, -1, 2},    {" ", "", 0, 0, 0},
    };
    for (const auto& c : cases) {
        JournalEntry entry;
        entry.Lines().Add();
        entry.Lines().SetAccountCode(c.account);
        entry.Lines().SetShortName(c.shortName);
        entry.Lines().SetDebit(c.debit);
        entry.Lines().SetCredit(c.credit);
        entry.Lines().Add();
        entry.Lines().Add();
        EXPECT_EQ(entry.FilledLines().size(), c.count) << c.account << c.shortName << c.debit;
    }
}

}  // namespace
}  // namespace platform::sapdi
