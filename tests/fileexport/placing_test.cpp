#include "fileexport/placing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "tests/support/expect_error.h"
#include "tests/support/test_shop.h"

using fileexport::FinishInterruptedDay;
using support::ExpectError;
using support::TestShop;

namespace {

constexpr const char* kNote = "KVDayEndServer.placing";
constexpr const char* kFinishedSales = "KDayEndSales.XML.200511161433.ferdig";
constexpr const char* kFinishedLines = "KDayEndSalesLines.XML.200511161433.ferdig";

class Placing : public testing::Test {
  protected:
    Placing() {
        shop.WriteDataSet("K", {{}}, {{}});
        for (const char* name : {"ordre.edi", "bilag.txt"}) {
            shop.folder.Write(name, "old");
            shop.folder.Write(std::string(name) + ".tmp", "new");
        }
    }

    void Place() { fileexport::PlaceDay({"K", "ordre.edi", "bilag.txt"}, shop.clock); }

    void ExpectPlaced() const {
        for (const char* name : {"ordre.edi", "bilag.txt"}) {
            EXPECT_EQ(shop.folder.Read(name), "new") << name;
            EXPECT_FALSE(shop.folder.Has(std::string(name) + ".tmp"));
        }
        EXPECT_TRUE(shop.folder.Has(kFinishedSales));
        EXPECT_TRUE(shop.folder.Has(kFinishedLines));
        EXPECT_FALSE(shop.folder.Has("KDayEndSales.XML"));
        EXPECT_FALSE(shop.folder.Has("KDayEndSalesLines.XML"));
        EXPECT_FALSE(shop.folder.Has(kNote));
    }

    TestShop shop;
};

}  // namespace

TEST_F(Placing, LeavesNothingToFinish) {
    Place();
    ExpectPlaced();
    EXPECT_EQ(FinishInterruptedDay(shop.clock), std::nullopt);
}

class PlacingInterrupted : public Placing, public testing::WithParamInterface<const char*> {
  protected:
    // A folder in the place of a name is what ends the placing there.
    void PlaceUpToTheName() {
        std::filesystem::remove(GetParam());
        std::filesystem::create_directory(GetParam());
        EXPECT_ANY_THROW(Place());
        EXPECT_ANY_THROW((void)FinishInterruptedDay(shop.clock)) << "the reason is still there";
        std::filesystem::remove(GetParam());
    }
};

INSTANTIATE_TEST_SUITE_P(AtEveryName, PlacingInterrupted,
                         testing::Values("ordre.edi", "bilag.txt", kFinishedSales, kFinishedLines));

TEST_P(PlacingInterrupted, IsFinishedOnce) {
    PlaceUpToTheName();
    EXPECT_EQ(FinishInterruptedDay(shop.clock), "K");
    ExpectPlaced();
    EXPECT_EQ(FinishInterruptedDay(shop.clock), std::nullopt);
}

TEST_P(PlacingInterrupted, LeavesTheFilesOfALaterDay) {
    PlaceUpToTheName();
    shop.WriteDataSet("K", {{}, {}}, {{}, {}, {}});
    const std::string sales = shop.folder.Read("KDayEndSales.XML");
    EXPECT_EQ(FinishInterruptedDay(shop.clock), "K");
    EXPECT_EQ(shop.folder.Read("KDayEndSales.XML"), sales);
    EXPECT_TRUE(shop.folder.Has("KDayEndSalesLines.XML"));
    EXPECT_EQ(shop.folder.Read("ordre.edi"), "new");
}

TEST_F(Placing, ANoteThatIsNoneIsNamedAndStays) {
    for (const char* content :
         {"", "ordre.edi\nbilag.txt\n", "ordre.edi\nbilag.txt\n1 2\n3 x\nK"}) {
        shop.folder.Write(kNote, content);
        const std::string text = ExpectError(321, [&] { (void)FinishInterruptedDay(shop.clock); });
        EXPECT_NE(text.find(kNote), std::string::npos) << text;
        EXPECT_TRUE(shop.folder.Has(kNote));
        EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    }
}
