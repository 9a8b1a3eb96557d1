#include "store/data_set.h"

#include <gtest/gtest.h>

#include "store/transaction_types.h"
#include "tests/support/test_shop.h"

using support::TestShop;

TEST(DataSet, FinishedNamesReplaceAnOlderFileAndHaveNoMinutes) {
    const TestShop shop;
    shop.folder.Write("kasse1dayendSALES.xml", "sales");
    shop.folder.Write("Kasse1DayEndSalesLines.XML", "lines");
    shop.folder.Write("Kasse1DayEndSales.XML.200511161433.ferdig", "older");
    store::MarkAsTransferred("Kasse1", shop.clock);
    EXPECT_EQ(shop.folder.Read("Kasse1DayEndSales.XML.200511161433.ferdig"), "sales");
    EXPECT_EQ(shop.folder.Read("Kasse1DayEndSalesLines.XML.200511161433.ferdig"), "lines");
    EXPECT_FALSE(shop.folder.Has("kasse1dayendSALES.xml"));
    EXPECT_FALSE(shop.folder.Has("Kasse1DayEndSalesLines.XML"));
}

TEST(DataSet, DisplayNames) {
    EXPECT_EQ(store::DataSetNameOf("<Uten navn>"), "");
    EXPECT_EQ(store::DataSetNameOf("<uten navn>"), "<uten navn>");
}

TEST(TransactionTypes, LedgersOfTheCodes) {
    TestShop shop;
    const std::pair<int, const char*> cases[] = {
        {0, "Long1 Avrunding"},        {2, "SalesAccount Salg"},
        {10, "CashAccount Kontanter"}, {11, "CashAccount Tilbake"},
        {12, "BankAccount Bank"},      {16, "IOUAccount Tilgodelapp"},
        {21, "Card1Account Bankkort"}, {27, "Card7Account Gavekort"},
    };
    for (const auto& [code, expected] : cases) {
        const auto ledger = store::LedgerOf(code);
        ASSERT_TRUE(ledger) << code;
        EXPECT_EQ(std::string(ledger->accountField) + " " +
                      *ledger->TextFrom(*shop.databases.OptionsTable).AsText(),
                  expected);
    }
    for (const int code : {3, 9, 17, 20, 28})
        EXPECT_FALSE(store::LedgerOf(code)) << code;
    for (const int code : {13, 14, 15})
        EXPECT_EQ(store::LedgerOf(code)->accountField, nullptr);
}
