#include "fileexport/placing.h"
#include "fileexport/placed_files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/files.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/ui/test_shop.h"

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

    void Place() {
        const store::DataSet dataSet("K");
        const store::WaitingFiles files(dataSet);
        store::FinishedNames finishedNames(files, shop.clock);
        fileexport::PlaceDay(dataSet, {"ordre.edi", "bilag.txt"}, finishedNames);
    }

    // A folder in the place of a name is what ends the placing there.
    void PlaceUpTo(const std::string& name) {
        std::filesystem::remove(name);
        std::filesystem::create_directory(name);
        EXPECT_ANY_THROW(Place());
        std::filesystem::remove(name);
    }

    // Ended before the next step: the vouchers' name, the note of it, a finished name more.
    enum class Step { Vouchers, PlacedNote, Sales, SalesLines };
    void EndBefore(Step step) {
        PlaceUpTo("bilag.txt");
        if (step == Step::Vouchers) return;
        std::filesystem::rename("bilag.txt.tmp", "bilag.txt");
        std::filesystem::create_hard_link("KDayEndSales.XML", kFinishedSales);
        std::filesystem::create_hard_link("KDayEndSalesLines.XML", kFinishedLines);
        if (step == Step::PlacedNote) return;
        std::string note = shop.folder.Read(kNote);
        note.at(note.size() - 3) = '1';  // in front of the data set's name
        shop.folder.Write(kNote, note);
        if (step == Step::SalesLines) std::filesystem::remove("KDayEndSales.XML");
    }

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

TEST_F(Placing, ADayOfWhichNothingIsPlacedStillWaits) {
    PlaceUpTo("ordre.edi");
    EXPECT_EQ(FinishInterruptedDay(shop.clock), std::nullopt);
    EXPECT_FALSE(shop.folder.Has("ordre.edi"));
    EXPECT_EQ(shop.folder.Read("bilag.txt"), "old");
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    EXPECT_FALSE(shop.folder.Has(kNote));
}

// The working copy of the orders is gone, so only the note and the order file can tell.
class PlacingOrdersGone : public Placing {
  protected:
    static std::string Stamp(const std::string& name) {
        const platform::FileStamp stamp = platform::StampOf(name).value();
        return std::to_string(stamp.number) + " " + std::to_string(stamp.size) + " " +
               std::to_string(stamp.modified);
    }

    void WriteNote(const std::string& stampsOfOrders) const {
        std::string note = "ordre.edi\nbilag.txt\n" + stampsOfOrders + "\n";
        for (const char* name :
             {"bilag.txt.tmp", "bilag.txt", "KDayEndSales.XML", "KDayEndSalesLines.XML"})
            note += Stamp(name) + "\n";
        shop.folder.Write(kNote, note + "0\nK");
    }

    void ExpectStillWaiting() {
        EXPECT_EQ(FinishInterruptedDay(shop.clock), std::nullopt);
        EXPECT_FALSE(shop.folder.Has(kNote));
        EXPECT_EQ(shop.folder.Read("ordre.edi"), "old");
        EXPECT_EQ(shop.folder.Read("bilag.txt"), "old");
        EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    }
};

TEST_F(PlacingOrdersGone, TheFileThatTheyWereToReplaceTellsThatTheyAreNotPlaced) {
    const std::string stamp = Stamp("ordre.edi.tmp");
    std::filesystem::remove("ordre.edi.tmp");
    WriteNote(stamp + " " + Stamp("ordre.edi"));
    ExpectStillWaiting();
    WriteNote(stamp + " " + Stamp("ordre.edi"));
    shop.folder.Write("ordre.edi", "by another hand");
    ExpectError(75, [&] { (void)FinishInterruptedDay(shop.clock); });
    WriteNote(stamp);  // of an older server, which does not tell
    ExpectError(75, [&] { (void)FinishInterruptedDay(shop.clock); });
}

TEST_F(PlacingOrdersGone, AnOlderNoteOfNoWorkingCopyTellsThatNothingIsPlaced) {
    std::filesystem::remove("ordre.edi.tmp");
    WriteNote("0 0 0");
    ExpectStillWaiting();
}

TEST_F(Placing, AWorkingCopyThatIsGoneIsToldBeforeAnythingIsNoted) {
    for (const char* name : {"bilag.txt.tmp", "ordre.edi.tmp"}) {
        std::filesystem::remove(name);
        const std::string text = ExpectError(53, [&] { Place(); });
        EXPECT_NE(text.find(name), std::string::npos) << text;
        EXPECT_FALSE(shop.folder.Has(kNote));
        EXPECT_EQ(shop.folder.Read("ordre.edi"), "old");
        EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
        EXPECT_FALSE(shop.folder.Has(kFinishedSales));
    }
}

class PlacingInterrupted : public Placing, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(BeforeEveryStep, PlacingInterrupted, testing::Range(0, 4));

TEST_P(PlacingInterrupted, IsFinishedOnce) {
    EndBefore(static_cast<Step>(GetParam()));
    EXPECT_EQ(FinishInterruptedDay(shop.clock), store::DataSet("K"));
    ExpectPlaced();
    EXPECT_EQ(FinishInterruptedDay(shop.clock), std::nullopt);
}

TEST_P(PlacingInterrupted, LeavesTheFilesOfALaterDay) {
    EndBefore(static_cast<Step>(GetParam()));
    const std::string sameSize = shop.folder.Read(
        std::filesystem::exists("KDayEndSales.XML") ? "KDayEndSales.XML" : kFinishedSales);
    std::filesystem::remove("KDayEndSales.XML");
    shop.folder.Write("KDayEndSales.XML", sameSize);
    std::filesystem::last_write_time(
        "KDayEndSales.XML",
        std::filesystem::last_write_time("KDayEndSales.XML") + std::chrono::seconds(5));
    EXPECT_EQ(FinishInterruptedDay(shop.clock), store::DataSet("K"));
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    EXPECT_EQ(shop.folder.Read("ordre.edi"), "new");
    EXPECT_EQ(shop.folder.Read("bilag.txt"), "new");
}

TEST_F(Placing, FilesThatWereGoneThenAreFinishedWhenTheyComeBack) {
    EndBefore(Step::Vouchers);
    std::filesystem::create_directory("till");
    for (const char* name : {"KDayEndSales.XML", "KDayEndSalesLines.XML"})
        std::filesystem::rename(name, std::string("till/") + name);
    EXPECT_EQ(FinishInterruptedDay(shop.clock), store::DataSet("K"));
    fileexport::FinishFilesThatCameBack(shop.clock, shop.window);
    EXPECT_TRUE(shop.window.List.empty());

    // A later day whose lines are the same ones.
    std::filesystem::copy("till/KDayEndSalesLines.XML", "KDayEndSalesLines.XML");
    shop.folder.Write("KDayEndSales.XML", "of a later day");
    fileexport::FinishFilesThatCameBack(shop.clock, shop.window);
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    EXPECT_TRUE(shop.folder.Has("KDayEndSalesLines.XML"));
    EXPECT_TRUE(shop.window.List.empty());

    std::filesystem::remove("KDayEndSales.XML");
    fileexport::FinishFilesThatCameBack(shop.clock, shop.window);
    EXPECT_EQ(shop.window.List,
              std::vector<std::string>{"Filen KDayEndSalesLines.XML er overført fra før, og har nå "
                                       "fått sitt ferdige navn."});
    EXPECT_TRUE(shop.folder.Has(kFinishedLines));

    std::filesystem::rename("till/KDayEndSales.XML", "KDayEndSales.XML");
    fileexport::FinishFilesThatCameBack(shop.clock, shop.window);
    ExpectPlaced();
    EXPECT_FALSE(shop.folder.Has("KVDayEndServer.placed"));
}

TEST_F(Placing, WhatTheAccountingPackageTookOfAPlacedDayStaysTaken) {
    EndBefore(Step::Sales);
    std::filesystem::remove("ordre.edi");
    std::filesystem::remove("bilag.txt");
    shop.folder.Write("ordre.edi.tmp", "of another server");
    EXPECT_EQ(FinishInterruptedDay(shop.clock), store::DataSet("K"));
    EXPECT_FALSE(shop.folder.Has("ordre.edi"));
    EXPECT_FALSE(shop.folder.Has("bilag.txt"));
    EXPECT_TRUE(shop.folder.Has(kFinishedLines));
}

// Nothing is guessed: nothing is placed, marked or forgotten.
TEST_F(Placing, WhereItIsOpenWhatWasPlacedItIsTold) {
    const auto expectRefusal = [&](const std::string& changed) {
        for (int i = 0; i < 2; ++i) {
            const std::string text =
                ExpectError(75, [&] { (void)FinishInterruptedDay(shop.clock); });
            EXPECT_NE(text.find(changed + " has changed"), std::string::npos) << text;
            EXPECT_NE(text.find(kNote), std::string::npos) << text;
        }
        EXPECT_TRUE(shop.folder.Has(kNote));
        EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
        EXPECT_TRUE(shop.folder.Has("KDayEndSalesLines.XML"));
    };
    PlaceUpTo("bilag.txt");
    shop.folder.Write("bilag.txt", "by another hand");
    expectRefusal("bilag.txt");
    EXPECT_EQ(shop.folder.Read("bilag.txt"), "by another hand");
    std::filesystem::remove("bilag.txt.tmp");
    expectRefusal("bilag.txt");
    std::filesystem::remove("ordre.edi");
    expectRefusal("ordre.edi");
    EXPECT_FALSE(shop.folder.Has("ordre.edi"));
}

TEST_F(Placing, ANoteThatIsNoneIsNamedAndStays) {
    for (const char* content : {"", "ordre.edi\nbilag.txt\n",
                                "ordre.edi\nbilag.txt\n1 2 3\n4 5 6\n7 8 9\n1 2 3\n4 5 x\n1\nK"}) {
        shop.folder.Write(kNote, content);
        const std::string text = ExpectError(321, [&] { (void)FinishInterruptedDay(shop.clock); });
        EXPECT_NE(text.find(kNote), std::string::npos) << text;
        EXPECT_TRUE(shop.folder.Has(kNote));
        EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    }
}
