#include "store/waiting_files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/platform/expect_error.h"
#include "tests/support/store/store_shop.h"

using support::ExpectError;
using support::StoreShop;

namespace {

constexpr const char* kSales = "KDayEndSales.XML";
constexpr const char* kLines = "KDayEndSalesLines.XML";
constexpr const char* kFinishedSales = "KDayEndSales.XML.200511161433.ferdig";
constexpr const char* kFinishedLines = "KDayEndSalesLines.XML.200511161433.ferdig";

class Waiting : public testing::Test {
  protected:
    Waiting() {
        shop.folder.Write(kSales, "sales");
        shop.folder.Write(kLines, "lines");
    }

    // Each file is a regular one under just one of the names.
    void ExpectNames(const char* sales, const char* lines) const {
        EXPECT_EQ(shop.folder.Read(sales), "sales");
        EXPECT_EQ(shop.folder.Read(lines), "lines");
        for (const char* name : {kSales, kLines, kFinishedSales, kFinishedLines}) {
            const bool isExpected = name == std::string(sales) || name == std::string(lines);
            EXPECT_EQ(shop.folder.Has(name), isExpected) << name;
        }
    }

    StoreShop shop;
};

}  // namespace

TEST_F(Waiting, FinishedNamesHaveNoMinutesAndKeepAnOlderFile) {
    std::filesystem::rename(kSales, "kdayendSALES.xml");
    shop.folder.Write(kFinishedSales, "older");
    shop.folder.Write(std::string(kFinishedSales) + ".1", "oldest");
    // In another spelling it is another data set's.
    shop.folder.Write("kDayEndSalesLines.XML.200511161433.ferdig", "k");
    const store::WaitingFiles files(store::DataSet("K"));
    store::FinishedNames(files, shop.clock).Keep();
    ExpectNames(kFinishedSales, kFinishedLines);
    EXPECT_FALSE(shop.folder.Has("kdayendSALES.xml"));
    EXPECT_EQ(shop.folder.Read(std::string(kFinishedSales) + ".1"), "oldest");
    EXPECT_EQ(shop.folder.Read(std::string(kFinishedSales) + ".2"), "older");
    EXPECT_EQ(shop.folder.Read("kDayEndSalesLines.XML.200511161433.ferdig"), "k");
}

TEST_F(Waiting, EachFileTakesItsOwnLookAtTheClock) {
    struct TickingClock : platform::Clock {
        [[nodiscard]] platform::DateTime Now() const override {
            return {2005, 11, 16, 14, 7, seconds++};
        }
        mutable std::int8_t seconds = 33;
    };
    const store::WaitingFiles files(store::DataSet("K"));
    store::FinishedNames(files, TickingClock()).Keep();
    EXPECT_TRUE(shop.folder.Has(kFinishedSales));
    EXPECT_TRUE(shop.folder.Has("KDayEndSalesLines.XML.200511161434.ferdig"));
}

TEST_F(Waiting, NamesThatAreNotKeptAreGivenUp) {
    const store::WaitingFiles files(store::DataSet("K"));
    { const store::FinishedNames names(files, shop.clock); }
    ExpectNames(kSales, kLines);

    // As a server leaves them that was ended.
    std::filesystem::create_hard_link(kSales, kFinishedSales);
    std::filesystem::create_hard_link(kLines, kFinishedLines);
    shop.folder.Write("KDayEndSales.XML.200511151433.ferdig", "yesterday");
    std::filesystem::create_hard_link(kSales, "KDayEndSales.XML.bak");
    files.GiveUpFinishedNames();
    ExpectNames(kSales, kLines);
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML.bak")) << "somebody's own name";
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML.200511151433.ferdig"));
}

TEST_F(Waiting, APostedDayKeepsTheFinishedNamesThatItHas) {
    std::filesystem::create_hard_link(kSales, "KDayEndSales.XML.200511151433.ferdig");
    store::WaitingFiles(store::DataSet("K")).Finish(shop.clock);
    EXPECT_FALSE(shop.folder.Has(kSales));
    EXPECT_EQ(shop.folder.Read("KDayEndSales.XML.200511151433.ferdig"), "sales");
    EXPECT_FALSE(shop.folder.Has(kFinishedSales));
    EXPECT_EQ(shop.folder.Read(kFinishedLines), "lines");
}

TEST_F(Waiting, AFileThatIsAnotherThanWasReadIsNamedAndStays) {
    const auto expectChanged = [&](const char* name, auto&& change) {
        const store::WaitingFiles files(store::DataSet("K"));
        files.RequireUnchanged();
        change();
        const std::string text = ExpectError(75, [&] { files.RequireUnchanged(); });
        EXPECT_EQ(text.find(std::string(name) + " has changed"), 0U) << text;
    };
    expectChanged(kSales, [&] { shop.folder.Write(kSales, "more sales"); });
    expectChanged(kLines, [&] { std::filesystem::remove(kLines); });
    shop.folder.Write(kLines, "lines");
    // Another file of the same size and time.
    expectChanged(kLines, [&] {
        shop.folder.Write("new", "LINES");
        std::filesystem::last_write_time("new", std::filesystem::last_write_time(kLines));
        std::filesystem::rename("new", kLines);
    });

    // One that comes between the finished names and the end belongs to a later day.
    const store::WaitingFiles files(store::DataSet("K"));
    store::FinishedNames names(files, shop.clock);
    shop.folder.Write("new", "later");
    std::filesystem::rename("new", kSales);
    names.Keep();
    EXPECT_EQ(shop.folder.Read(kSales), "later");
    EXPECT_EQ(shop.folder.Read(kFinishedSales), "more sales");
    EXPECT_FALSE(shop.folder.Has(kLines));
}

TEST_F(Waiting, AFinishedNameThatCanNotBeGivenIsFoundBefore) {
    const std::string tooLong(255 - std::string(kLines).size(), 'x');
    shop.folder.Write(tooLong + kSales, "sales");
    shop.folder.Write(tooLong + kLines, "lines");
    const store::WaitingFiles files{store::DataSet(tooLong + "K")};
    ExpectError(75, [&] { (void)files.TryFinishedNames(shop.clock); });
    (void)store::WaitingFiles(store::DataSet("K")).TryFinishedNames(shop.clock);
    ExpectNames(kSales, kLines);
}

TEST_F(Waiting, TheMarkIsOfBothFilesBytes) {
    // printf 'saleslines' | sha256sum
    EXPECT_EQ(store::WaitingFiles(store::DataSet("K")).Mark(),
              "d7981481814b107da56a0a112eec4d8d88c011f42dbb13ad58");
}
