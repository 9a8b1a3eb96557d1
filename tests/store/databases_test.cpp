#include "store/databases.h"

#include <gtest/gtest.h>

#include "tests/support/platform/expect_error.h"
#include "tests/support/store/store_shop.h"

using platform::Answer;
using support::StoreShop;

namespace {

store::AfterOpening OpenAgain(StoreShop& shop) {
    store::Databases& databases = shop.databases;
    databases.TaxTable.Release();
    return store::OpenTables(databases, shop.theOperator, "Tittel");
}

}  // namespace

TEST(Databases, AMissingDatabaseIsAnErrorThatNamesIt) {
    const StoreShop shop;
    platform::database::SqliteEngine engine;
    store::Databases databases;
    std::filesystem::remove("data/KVDayEndServer.mdb");
    const std::string text =
        support::ExpectError(3024, [&] { store::OpenConnections(engine, "data", databases); });
    EXPECT_NE(text.find("KVDayEndServer.mdb"), std::string::npos) << text;
    EXPECT_FALSE(std::filesystem::exists("data/KVDayEndServer.mdb"));
}

TEST(Databases, AMissingIndexIsToldAndOpeningGoesOn) {
    StoreShop shop;
    shop.InStore("DROP TABLE Customers");
    shop.InStore("CREATE TABLE Customers (ID TEXT, Name TEXT, Status INTEGER)");
    EXPECT_EQ(OpenAgain(shop), store::AfterOpening::GoOn);
    ASSERT_EQ(shop.theOperator.shown.size(), 1U);
    EXPECT_EQ(shop.theOperator.shown[0].find(
                  "Problemer med indeksering. Ta en backup og kjør deretter reindeksering fra "
                  "System-menyen.\n3015\n"),
              0U);
    EXPECT_TRUE(shop.databases.TaxTable);
}

TEST(Databases, AMissingTableAsksAndNoGoesOn) {
    StoreShop shop;
    shop.InStore("DROP TABLE Tax");
    shop.theOperator.answers = {Answer::No};
    EXPECT_EQ(OpenAgain(shop), store::AfterOpening::GoOn);
    const platform::Question& question = shop.theOperator.asked.at(0);
    EXPECT_EQ(question.text.find("3078 - "), 0U);
    EXPECT_NE(question.text.find("\n\nSkal programmet avsluttes?"), std::string::npos);
    EXPECT_EQ(question.defaultAnswer, Answer::Yes);
    support::ExpectError(91, [&] { (void)shop.databases.TaxTable->NoMatch(); });
}

TEST(Databases, TheIndexOfATableThatDidNotOpenAsksAgain) {
    StoreShop shop;
    shop.InStore("DROP TABLE Products");
    shop.databases.ProductsTable.Release();
    shop.theOperator.answers = {Answer::No, Answer::Yes};
    EXPECT_EQ(OpenAgain(shop), store::AfterOpening::EndProgram);
    EXPECT_EQ(shop.theOperator.asked.at(1).text.find("91 - "), 0U);
    EXPECT_FALSE(shop.databases.TaxTable) << "ended at once";
}
