#include <gtest/gtest.h>

#include <vector>

#include "tests/localcompany/company_fixture.h"
#include "tests/support/platform/expect_error.h"

namespace localcompany {

using platform::DateTime;
using platform::sapdi::BusinessPartners;
using platform::sapdi::Documents;
using platform::sapdi::Items;
using platform::sapdi::JournalEntries;
using platform::sapdi::ObjectType;
using platform::sapdi::Query;
namespace {

namespace number = platform::error_number;
using support::ExpectError;

constexpr std::string_view kInjection = "x'; DROP TABLE OITM;--";

using LocalObjects = CompanyTest;

TEST_F(LocalObjects, RefusesMasterDataByTheFirstRuleBroken) {
    const auto update = [this](std::string_view code) {
        const auto partner = New<BusinessPartners>(ObjectType::BusinessPartners);
        partner->SetCardCode(code);
        return partner->Update();
    };
    const auto expect = [this](std::int32_t result, std::int32_t code, std::string_view text) {
        EXPECT_EQ(result, code) << text;
        ExpectLastError(code, text);
    };
    expect(AddPartner("1000"), -2035, "Customer code '1000' already exists");
    expect(AddPartner("ÆRLIG as "), -2035, "Customer code 'ÆRLIG as ' already exists");
    expect(AddPartner("Ærlig A"), 0, "");
    expect(AddPartner("  "), -5002, "Customer code is missing");
    expect(AddItem("te"), -2035, "Item code 'te' already exists");
    expect(AddItem(" te"), 0, "");
    expect(AddItem(""), -5002, "Item code is missing");
    expect(update("9"), -2028, "Customer code '9' does not exist");
    expect(update(""), -5002, "Customer code is missing");
}

TEST_F(LocalObjects, RefusesDocumentsByTheFirstRuleBroken) {
    const struct {
        std::string_view customer;
        std::vector<std::string_view> items;
        std::string_view account;
        std::int32_t code;
        std::string_view text;
    } cases[] = {
        {"none", {"none", " "}, "x", -5002, "Line 2: Item code is missing"},
        {"none", {"none"}, "x", -2028, "Customer code 'none' does not exist"},
        {"1000", {"te", "none"}, "x", -2028, "Line 2: Item code 'none' does not exist"},
        {"1000", {"te", "te"}, "x", -5002, "Line 2: Account code 'x' does not exist"},
        {"1000 ", {"TE", "kaffe  "}, "3000 ", 0, ""},
        {"æRLIG AS", {"KAFFE"}, " ", 0, ""},
    };
    for (const auto& c : cases) {
        const auto document = New<Documents>(ObjectType::Invoices);
        document->SetCardCode(c.customer);
        for (std::size_t i = 0; i < c.items.size(); ++i) {
            if (i > 0) document->Lines().Add();
            document->Lines().SetItemCode(c.items[i]);
        }
        if (!c.items.empty()) document->Lines().SetAccountCode(c.account);
        EXPECT_EQ(document->Add(), c.code) << c.text;
        ExpectLastError(c.code, c.text);
    }
    EXPECT_EQ(Rows("SELECT CardCode FROM OINV"), "1000 ;æRLIG AS") << "stored as given";
}

TEST_F(LocalObjects, PostsBalancedJournalEntriesOnly) {
    struct Line {
        std::string_view account, shortName;
        double debit, credit;
    };
    const struct {
        std::vector<Line> lines;
        std::int32_t code;
        std::string_view text;
    } cases[] = {
        {{{"1500", "1000", 0, 0.3}, {"1900", "", 0.1, 0}, {"1900", "", 0.2, 0}}, 0, ""},
        {{{"1500", "nobody", 0.00001, 0}, {"", "", 0, 0}}, 0, ""},
        {{{"1500", "", 100, 0}, {"1900", "", 0, 99.99}},
         -5002,
         "Unbalanced transaction: debit 100, credit 99,99"},
        {{{"1500", "", 100, 0}, {"1501", "", 0, 99}},
         -5002,
         "Line 2: Account code '1501' does not exist"},
        {{{"", "1000", 0, 0}, {"", "", 0, 0}, {" ", "", 0, 5}, {"1900", "", 5, 0}}, 0, ""}};
    for (const auto& c : cases) {
        const auto entry = New<JournalEntries>(ObjectType::JournalEntries);
        entry->SetReferenceDate({2005, 11, 30});
        for (const Line& line : c.lines) {
            if (!line.account.empty()) entry->Lines().SetAccountCode(line.account);
            if (!line.shortName.empty()) entry->Lines().SetShortName(line.shortName);
            if (line.debit != 0) entry->Lines().SetDebit(line.debit);
            if (line.credit != 0) entry->Lines().SetCredit(line.credit);
            entry->Lines().Add();
        }
        EXPECT_EQ(entry->Add(), c.code);
        ExpectLastError(c.code, c.text);
        EXPECT_EQ(entry->Number() != 0, c.code == 0);
    }
    EXPECT_EQ(company_->GetNewObjectKey(), "3");
    EXPECT_EQ(Rows("SELECT TransId, Number, RefDate, DueDate FROM OJDT"),
              "1|1|2005-11-30|-;2|2|2005-11-30|-;3|3|2005-11-30|-");
    EXPECT_EQ(Rows("SELECT * FROM JDT1 WHERE TransId <> 2"),
              "1|0|1500|1000|-|0.3;1|1|1900|-|0.1|-;1|2|1900|-|0.2|-;"
              "3|0|-|1000|-|-;3|1|-|-|-|-;3|2| |-|-|5;3|3|1900|-|5|-");
}

TEST_F(LocalObjects, WritesWhatWasSetAndNothingElse) {
    const auto partner = New<BusinessPartners>(ObjectType::BusinessPartners);
    partner->SetCardCode(kInjection);
    partner->SetCardName("O'Hara & sønn");
    partner->SetFax("");
    EXPECT_EQ(partner->Add(), 0);
    EXPECT_EQ(company_->GetNewObjectKey(), kInjection);
    EXPECT_EQ(Rows("SELECT CardCode, CardName, Phone1, Fax, DebPayAcct FROM OCRD WHERE Fax = ''"),
              std::string(kInjection) + "|O'Hara & sønn|-||1500");

    const auto loaded = New<BusinessPartners>(ObjectType::BusinessPartners);
    EXPECT_TRUE(loaded->GetByKey("1000 "));
    EXPECT_EQ(loaded->DebitorAccount(), "1510");
    EXPECT_FALSE(loaded->GetByKey("1001"));
    EXPECT_EQ(loaded->DebitorAccount(), "1510") << "as it was";
    New<Query>(ObjectType::Recordset)->DoQuery("UPDATE OCRD SET Fax = '123', City = 'Voss'");
    loaded->SetCity("Bergen");
    EXPECT_EQ(loaded->Update(), 0);
    EXPECT_EQ(Rows("SELECT CardName, Fax, City, DebPayAcct FROM OCRD WHERE CardCode = '1000'"),
              "-|123|Bergen|1510");
    EXPECT_EQ(Rows("SELECT count(*) FROM OITM"), "2");
}

TEST_F(LocalObjects, GivesANewItemAPriceOnEveryListAndAChangedOneThoseThatWereSet) {
    const auto item = New<Items>(ObjectType::Items);
    item->SetItemCode("Sukker ");
    item->PriceList().SetCurrentLine(1);
    item->PriceList().SetPrice(9.5);
    for (const int line : {-1, 2}) {
        ExpectError(number::kIndexOutOfRange, [&] { item->PriceList().SetCurrentLine(line); });
    }
    EXPECT_EQ(item->Add(), 0);
    const std::string prices = "SELECT ItemCode, PriceList, Price FROM ITM1 ORDER BY PriceList";
    EXPECT_EQ(Rows(prices), "Sukker |3|0;Sukker |7|9.5");

    const auto query = New<Query>(ObjectType::Recordset);
    query->DoQuery("DELETE FROM ITM1 WHERE PriceList = 3");
    query->DoQuery("INSERT INTO OPLN VALUES (9, 'Engros')");
    const auto changed = New<Items>(ObjectType::Items);
    EXPECT_TRUE(changed->GetByKey("SUKKER"));
    changed->SetItemName("Sukker");
    changed->PriceList().SetPrice(12);
    EXPECT_EQ(changed->Update(), 0);
    EXPECT_EQ(Rows(prices), "Sukker |3|12;Sukker |7|9.5");
    EXPECT_EQ(Rows("SELECT * FROM OITM WHERE ItemName = 'Sukker'"), "Sukker |Sukker");
}

TEST_F(LocalObjects, PutsEveryKindOfDocumentInItsTables) {
    for (const auto& [type, name] : kDocuments) {
        for (int i = 1; i <= 2; ++i) {
            const auto document = Document("1000", "kaffe", "", type);
            document->SetDocDate({2005, 2, 3, 14, 30, 0});
            document->SetSalesPersonCode(4);
            document->Lines().SetQuantity(-2);
            document->Lines().Add();
            document->Lines().SetItemCode(" te");
            ExpectError(number::kIndexOutOfRange, [&] { document->Lines().SetCurrentLine(2); });
            EXPECT_EQ(document->Add(), -2028);
            EXPECT_EQ(document->DocNum(), 0);
            document->Lines().SetItemCode("te");
            document->Lines().SetCurrentLine(0);
            document->Lines().SetUnitPrice(15.5);
            EXPECT_EQ(document->Add(), 0);
            EXPECT_EQ(document->DocNum(), i);
            EXPECT_EQ(company_->GetNewObjectKey(), std::to_string(i));
        }
        const std::string table(name);
        EXPECT_EQ(Rows("SELECT * FROM O" + table),
                  "1|1|1000|-|-|-|-|2005-02-03|-|-|-|4|N;2|2|1000|-|-|-|-|2005-02-03|-|-|-|4|N");
        EXPECT_EQ(Rows("SELECT * FROM " + table + "1 WHERE DocEntry = 2"),
                  "2|0|kaffe|-|-2|15.5|-||-|-;2|1|te|-|-|-|-|-|-|-");

        const auto loaded = New<Documents>(type);
        EXPECT_TRUE(loaded->GetByKey(2));
        EXPECT_FALSE(loaded->GetByKey(3));
        EXPECT_EQ(loaded->DocNum(), 2);
        EXPECT_EQ(loaded->CardCode(), "1000");
        EXPECT_EQ(loaded->DocDate(), (DateTime{2005, 2, 3}));
    }
}

}  // namespace
}  // namespace localcompany
