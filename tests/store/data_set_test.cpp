#include "store/data_set.h"

#include <gtest/gtest.h>

#include "store/transaction_types.h"
#include "tests/support/store/store_shop.h"

using support::StoreShop;

TEST(DataSet, FinishedNamesHaveNoMinutesAndKeepAnOlderFile) {
    const StoreShop shop;
    shop.folder.Write("kasse1dayendSALES.xml", "sales");
    shop.folder.Write("Kasse1DayEndSalesLines.XML", "lines");
    shop.folder.Write("Kasse1DayEndSales.XML.200511161433.ferdig", "older");
    shop.folder.Write("Kasse1DayEndSales.XML.200511161433.ferdig.1", "oldest");
    store::DataSet("Kasse1").MarkAsTransferred(shop.clock);
    EXPECT_EQ(shop.folder.Read("Kasse1DayEndSales.XML.200511161433.ferdig"), "sales");
    EXPECT_EQ(shop.folder.Read("Kasse1DayEndSales.XML.200511161433.ferdig.1"), "oldest");
    EXPECT_EQ(shop.folder.Read("Kasse1DayEndSales.XML.200511161433.ferdig.2"), "older");
    EXPECT_EQ(shop.folder.Read("Kasse1DayEndSalesLines.XML.200511161433.ferdig"), "lines");
    EXPECT_FALSE(shop.folder.Has("kasse1dayendSALES.xml"));
    EXPECT_FALSE(shop.folder.Has("Kasse1DayEndSalesLines.XML"));
}

TEST(DataSet, EachFileTakesItsOwnLookAtTheClock) {
    struct TickingClock : platform::Clock {
        [[nodiscard]] platform::DateTime Now() const override {
            return {2005, 11, 16, 14, 7, seconds++};
        }
        mutable std::int8_t seconds = 33;
    };
    const StoreShop shop;
    shop.WriteDataSet("K", {{}}, {{}});
    store::DataSet("K").MarkAsTransferred(TickingClock());
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML.200511161433.ferdig"));
    EXPECT_TRUE(shop.folder.Has("KDayEndSalesLines.XML.200511161434.ferdig"));
}

TEST(DataSet, DisplayNames) {
    EXPECT_EQ(store::DataSet::OfDisplayName("<Uten navn>").SalesFile(), "DayEndSales.XML");
    EXPECT_EQ(store::DataSet("").DisplayName(), "<Uten navn>");
    EXPECT_EQ(store::DataSet::OfDisplayName("<uten navn>").Name(), "<uten navn>");
}

TEST(TransactionTypes, LedgersOfTheCodes) {
    StoreShop shop;
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
                      *ledger->TextFrom(store::Options(shop.databases.OptionsTable)).AsText(),
                  expected);
    }
    for (const int code : {3, 9, 17, 20, 28})
        EXPECT_FALSE(store::LedgerOf(code)) << code;
    for (const int code : {13, 14, 15})
        EXPECT_EQ(store::LedgerOf(code)->accountField, nullptr);
}
