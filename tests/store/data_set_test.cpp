#include "store/data_set.h"

#include <gtest/gtest.h>

#include "store/transaction_types.h"
#include "tests/support/store/store_shop.h"

using support::StoreShop;

namespace {

std::string Found(const std::optional<std::string>& name) {
    return name.value_or("none");
}

}  // namespace

TEST(DataSet, DisplayNames) {
    EXPECT_EQ(store::DataSet::OfDisplayName("<Uten navn>").SalesFile(), "DayEndSales.XML");
    EXPECT_EQ(store::DataSet("").DisplayName(), "<Uten navn>");
    EXPECT_EQ(store::DataSet::OfDisplayName("<uten navn>").Name(), "<uten navn>");
}

TEST(DataSet, NamesThatDifferInCaseAreDifferentDataSets) {
    const StoreShop shop;
    for (const char* name : {"butikkDayEndSales.xml", "butikkDayEndSalesLines.xml",
                             "BUTIKKDayEndSales.XML", "BUTIKKDayEndSalesLines.xml"})
        shop.folder.Write(name, "");
    EXPECT_EQ(Found(store::DataSet("butikk").FindSalesFile()), "butikkDayEndSales.xml");
    EXPECT_EQ(Found(store::DataSet("butikk").FindSalesLinesFile()), "butikkDayEndSalesLines.xml");
    EXPECT_EQ(Found(store::DataSet("BUTIKK").FindSalesFile()), "BUTIKKDayEndSales.XML");
    EXPECT_EQ(Found(store::DataSet("BUTIKK").FindSalesLinesFile()), "BUTIKKDayEndSalesLines.xml");
    EXPECT_EQ(Found(store::DataSet("Butikk").FindSalesFile()), "none") << "it could be either";

    std::filesystem::remove("butikkDayEndSalesLines.xml");
    EXPECT_EQ(Found(store::DataSet("butikk").FindSalesLinesFile()), "none")
        << "the other data set's lines";
    EXPECT_EQ(store::DataSet::Waiting(), std::vector{store::DataSet("BUTIKK")});
}

TEST(DataSet, AFileInAnotherSpellingIsTakenWhereItIsTheOnlyOne) {
    const StoreShop shop;
    shop.folder.Write("kasse1DayEndSales.XML", "");
    shop.folder.Write("KASSE1DAYENDSALESLINES.XML", "");
    EXPECT_EQ(Found(store::DataSet("kasse1").FindSalesLinesFile()), "kasse1DayEndSalesLines.XML")
        << "the usual name opens it";
    EXPECT_TRUE(store::DataSet("KASSE1").FindSalesFile());
    shop.folder.Write("Kasse1DayEndSalesLines.XML", "");
    EXPECT_FALSE(store::DataSet("kasse1").FindSalesLinesFile());
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
