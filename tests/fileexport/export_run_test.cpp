#include "fileexport/export_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <map>
#include <sstream>
#include <utility>

#include "platform/files.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/no_files.h"
#include "tests/support/ui/test_shop.h"

using platform::Answer;
using support::ExpectError;
using support::TestShop;

namespace {

class Export : public testing::Test {
  protected:
    Export() { shop.WriteDataSet("K", {{}}, {{}}); }

    void RunExport(const std::string& dataSet, std::initializer_list<Answer> answers) {
        shop.theOperator.answers = answers;
        EXPECT_FALSE(exportRun.ExportDataSet(store::DataSet(dataSet)));
    }

    // How many of each kind of line an import file holds.
    [[nodiscard]] std::string Count(const std::string& fileName) const {
        if (!shop.folder.Has(fileName)) return "none";
        std::map<char, int> counts;
        std::istringstream text(shop.Text(fileName));
        for (std::string line; std::getline(text, line);) {
            if (!line.empty()) ++counts[line.front()];
        }
        std::string result;
        for (const auto& [kind, count] : counts)
            result += kind + std::to_string(count) + " ";
        return result;
    }

    TestShop shop;
    fileexport::ExportRun exportRun{shop.settings,    shop.databases, shop.runState, shop.window,
                                    shop.theOperator, shop.clock,     shop.textFiles};
};

constexpr Answer kYes = Answer::Yes;
constexpr Answer kNo = Answer::No;

}  // namespace

TEST_F(Export, YesPlacesBothFilesAndMarksTheDataSet) {
    RunExport("K", {kYes});
    EXPECT_EQ(Count("bilag.txt"), "\"2 @2 ");
    EXPECT_EQ(Count("ordre.edi"), "71 H1 L1 ");
    EXPECT_FALSE(shop.folder.Has("bilag.txt.tmp"));
    EXPECT_FALSE(shop.folder.Has("ordre.edi.tmp"));
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML.200511161433.ferdig"));
    EXPECT_TRUE(shop.folder.Has("KDayEndSalesLines.XML.200511161433.ferdig"));
    EXPECT_FALSE(shop.folder.Has("KDayEndSales.XML"));
    EXPECT_TRUE(shop.runState.SalesRecordset) << "open until the next data set replaces it";
}

TEST_F(Export, AnExistingVoucherFileIsKeptOrReplacedAnOrderFileAlwaysExtended) {
    shop.folder.Write("BILAG.txt", "gammel\r\n");
    shop.folder.Write("ordre.edi", "gammel\r\n");
    RunExport("K", {kNo, kYes});
    EXPECT_EQ(Count("BILAG.txt"), "\"2 @2 g1 ");
    EXPECT_EQ(Count("ordre.edi"), "H1 L1 g1 ");
    EXPECT_FALSE(shop.theOperator.asked[0].title);
    EXPECT_EQ(shop.theOperator.asked[0].defaultAnswer, kNo);

    shop.WriteDataSet("K", {{}}, {{}});
    RunExport("K", {kYes, kYes});
    EXPECT_EQ(Count("BILAG.txt"), "\"2 @2 ");
    shop.WriteDataSet("K", {{}}, {{}});
    shop.settings.Overwrite = "1";
    RunExport("K", {kYes});
    EXPECT_EQ(Count("BILAG.txt"), "\"2 @2 ");
    EXPECT_EQ(Count("ordre.edi"), "H3 L3 g1 ");
}

TEST_F(Export, NoLeavesTheConfiguredFilesAndTheNextDataSetFails) {
    shop.folder.Write("bilag.txt", "gammel\r\n");
    shop.InStore("INSERT INTO Products (ID, Status) VALUES ('P1', 1)");
    RunExport("K", {kYes, kNo});
    EXPECT_EQ(shop.folder.Read("bilag.txt"), "gammel\r\n");
    EXPECT_FALSE(shop.folder.Has("bilag.txt.tmp"));
    EXPECT_FALSE(shop.folder.Has("ordre.edi"));
    EXPECT_TRUE(shop.folder.Has("ordre.edi.tmp"));
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    EXPECT_EQ(shop.AskStore("SELECT Status FROM Products"), "0");
    EXPECT_EQ(shop.AskStore("SELECT NextVoucherNo FROM Options"), "501");

    shop.theOperator.answers = {kYes};
    ExpectError(55, [&] { exportRun.ExportDataSet(store::DataSet("K")); });
    EXPECT_TRUE(shop.folder.Has("bilag.txt.tmp"));
    EXPECT_EQ(shop.folder.Read("bilag.txt"), "gammel\r\n");
}

TEST_F(Export, MissingFilesAreToldAndNothingIsTouched) {
    shop.folder.Write("bilag.txt", "gammel\r\n");
    std::filesystem::remove("KDayEndSalesLines.XML");
    RunExport("K", {});
    RunExport("Borte", {});
    EXPECT_EQ(shop.window.List,
              (std::vector<std::string>{
                  "Finner ikke filen med salgslinjer. Avslutter behandling av datasett.",
                  "Finner ikke filen med salg. Avslutter behandling av datasett."}));
    EXPECT_FALSE(shop.runState.PersistConnection);
    EXPECT_FALSE(shop.runState.DataSetHasErrors);
}

TEST_F(Export, ADayWithoutSalesChangesNoFile) {
    shop.WriteDataSet("K", {}, {{}});
    RunExport("K", {});
    EXPECT_EQ(Count("bilag.txt.tmp"), "none");
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    EXPECT_EQ(shop.AskWork("SELECT count(*) FROM SalesLines"), "1");
}

TEST_F(Export, AFolderThatIsNotThereIsAnErrorThatNamesIt) {
    shop.settings.EDIFileName = "ingen\\ordre.edi";
    shop.folder.Write("bilag.txt", "gammel\r\n");
    shop.settings.Overwrite = "1";
    const std::string text = ExpectError(76, [&] { exportRun.ExportDataSet(store::DataSet("K")); });
    EXPECT_NE(text.find("ingen"), std::string::npos) << text;
    EXPECT_EQ(shop.folder.Read("bilag.txt"), "gammel\r\n");
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
}

TEST_F(Export, NothingIsPlacedWhereOneOfTheFilesCanNotBe) {
    shop.folder.Write("ordre.edi", "gammel\r\n");
    for (const char* name : {"mappe", ""}) {
        std::filesystem::create_directories("mappe");
        shop.settings.VoucherFileName = name;
        fileexport::ExportRun placing(shop.settings, shop.databases, shop.runState, shop.window,
                                      shop.theOperator, shop.clock, shop.textFiles);
        const std::string voucherNo = shop.AskStore("SELECT NextVoucherNo FROM Options");
        ExpectError(75,
                    [&] { placing.ExportDataSet(store::DataSet("K")); });  // and nobody is asked
        EXPECT_EQ(shop.folder.Read("ordre.edi"), "gammel\r\n");
        EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
        EXPECT_EQ(shop.AskStore("SELECT NextVoucherNo FROM Options"), voucherNo);
    }
}

TEST_F(Export, ANameThatIsNoFilesIsRefusedBeforeAnythingIsChanged) {
    for (const std::string& name : support::MakeNoFiles(shop.folder)) {
        for (std::string app::AppSettings::*setting :
             {&app::AppSettings::EDIFileName, &app::AppSettings::VoucherFileName}) {
            SCOPED_TRACE(name);
            const std::string before = std::exchange(shop.settings.*setting, name);
            fileexport::ExportRun failing(shop.settings, shop.databases, shop.runState, shop.window,
                                          shop.theOperator, shop.clock, shop.textFiles);
            const std::string text =
                ExpectError(75, [&] { failing.ExportDataSet(store::DataSet("K")); });
            EXPECT_NE(text.find(name), std::string::npos) << text;
            shop.settings.*setting = before;
        }
    }
    EXPECT_EQ(shop.AskWork("SELECT count(*) FROM SalesLines"), "0");
    EXPECT_TRUE(shop.theOperator.asked.empty());
    EXPECT_EQ(platform::ListFiles(".", "*.tmp"), std::vector<std::string>{});
}

TEST_F(Export, ErrorsNameWhereTheyHappened) {
    const auto messageOf = [&](int number, const support::Sale& sale, const support::Line& line) {
        shop.WriteDataSet("K", {sale}, {{}, line});
        fileexport::ExportRun failing(shop.settings, shop.databases, shop.runState, shop.window,
                                      shop.theOperator, shop.clock, shop.textFiles);
        return ExpectError(number, [&] { failing.ExportDataSet(store::DataSet("K")); });
    };
    const auto expect = [](const std::string& message, std::initializer_list<const char*> words) {
        for (const char* word : words) {
            EXPECT_NE(message.find(word), std::string::npos) << message << " lacks " << word;
        }
    };
    expect(messageOf(13, {.id = 42, .customerID = "abc"}, {.saleId = 42, .transType = 13}),
           {"Sale 42", "CustomerID", "abc"});
    expect(messageOf(3704, {.id = 43, .type = 0}, {}), {"Sale 43", "closed"});
    shop.InStore("INSERT INTO Tax (VatCode, Rate) VALUES (5, -100), (6, NULL)");
    expect(messageOf(11, {}, {.vatCode = 5}), {"KDayEndSalesLines.XML, record 2"});
    expect(messageOf(94, {}, {.vatCode = 6}), {"record 2", "Tax.Rate", "6"});
    shop.InStore("UPDATE Options SET CashAccount = NULL");
    expect(messageOf(94, {}, {.transType = 10}), {"Options.CashAccount"});
    shop.InStore("ALTER TABLE Customers DROP COLUMN Fax");
    shop.InStore("INSERT INTO Customers (ID, Status) VALUES ('1', 1)");
    expect(messageOf(3265, {}, {}), {"Customers", "Fax"});
}

TEST_F(Export, WhatIsCollectedIsWrittenAlsoAfterAnError) {
    shop.WriteDataSet("K", {{.type = 0}}, {{}});
    {
        fileexport::ExportRun failing(shop.settings, shop.databases, shop.runState, shop.window,
                                      shop.theOperator, shop.clock, shop.textFiles);
        ExpectError(3704, [&] { failing.ExportDataSet(store::DataSet("K")); });
    }
    EXPECT_NE(shop.Text("bilag.txt.tmp").find("@WaVo"), std::string::npos);
    EXPECT_EQ(Count("bilag.txt"), "none");
}

TEST_F(Export, ADayThatChangesAtTheQuestionIsNotPlaced) {
    shop.folder.Write("bilag.txt", "old");
    shop.settings.Overwrite = "1";
    shop.theOperator.whileAsked = [&] { shop.WriteDataSet("K", {{}, {.id = 2}}, {{}}); };
    shop.theOperator.answers = {kYes};
    const std::string text = ExpectError(75, [&] { exportRun.ExportDataSet(store::DataSet("K")); });
    EXPECT_EQ(text.find("KDayEndSales.XML has changed"), 0U) << text;
    EXPECT_EQ(shop.folder.Read("bilag.txt"), "old");
    EXPECT_FALSE(shop.folder.Has("ordre.edi"));
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    EXPECT_FALSE(shop.folder.Has("KVDayEndServer.placing"));
}

// What others do with the import files while the question at the end stands, and the answers.
class ImportFilesChange : public Export {
  protected:
    void RunWith(std::initializer_list<Answer> answers, const std::function<void()>& meanwhile) {
        shop.theOperator.whileAsked = [=, this] {
            if (shop.theOperator.asked.size() == answers.size()) meanwhile();
        };
        RunExport("K", answers);
    }

    [[nodiscard]] std::string Told() const {
        std::string told;
        for (const std::string& line : shop.window.List) {
            EXPECT_EQ(line.find("Filen "), 0U);
            const bool isGone = line.find(" er borte siden dagen ble lest") != std::string::npos;
            told += line.substr(6, line.find(' ', 6) - 6) + (isGone ? " gone " : " changed ");
        }
        return told;
    }
};

TEST_F(ImportFilesChange, WhatTheAccountingPackageTookDoesNotComeAgain) {
    shop.folder.Write("ordre.edi", "7;6;\r\ngammel\r\n");
    shop.folder.Write("bilag.txt", "gammel\r\n");
    RunWith({kNo, kYes}, [] {
        std::filesystem::remove("ordre.edi");
        std::filesystem::remove("bilag.txt");
    });
    EXPECT_EQ(Count("ordre.edi"), "71 H1 L1 ");
    EXPECT_EQ(shop.Text("ordre.edi").find("7;6;\nH"), 0U);
    EXPECT_EQ(Count("bilag.txt"), "\"2 @2 ");
    EXPECT_EQ(Told(), "ordre.edi gone bilag.txt gone ");
    EXPECT_FALSE(shop.folder.Has("ordre.edi.tmp"));
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML.200511161433.ferdig"));
}

TEST_F(ImportFilesChange, WhatOthersWroteStays) {
    shop.folder.Write("ordre.edi", "gammel\r\n");
    shop.folder.Write("bilag.txt", "gammel\r\n");
    RunWith({kNo, kYes}, [this] {
        shop.folder.Write("ordre.edi", "tirsdag\r\n");
        shop.folder.Write("bilag.txt", "gammel\r\ntirsdag\r\n");
    });
    EXPECT_EQ(Count("ordre.edi"), "H1 L1 t1 ");
    EXPECT_EQ(Count("bilag.txt"), "\"2 @2 g1 t1 ");
    EXPECT_EQ(Told(), "ordre.edi changed bilag.txt changed ");
}

TEST_F(ImportFilesChange, FilesThatComeMeanwhileAreExtended) {
    shop.settings.Overwrite = "1";
    RunWith({kYes}, [this] {
        shop.folder.Write("ordre.edi", "7;6;\r\ntirsdag\r\n");
        shop.folder.Write("bilag.txt", "tirsdag\r\n");
    });
    EXPECT_EQ(Count("ordre.edi"), "71 H1 L1 t1 ");
    EXPECT_EQ(Count("bilag.txt"), "\"2 @2 t1 ");
    EXPECT_EQ(Told(), "ordre.edi changed bilag.txt changed ");
}

TEST_F(ImportFilesChange, VouchersThatWereToBeReplacedAreReplacedAsFarAsThatWasAgreed) {
    const auto after = [this](std::initializer_list<Answer> answers, const char* meanwhile) {
        shop.theOperator.asked.clear();
        shop.window.List.clear();
        shop.WriteDataSet("K", {{}}, {{}});
        shop.folder.Write("bilag.txt", "gammel\r\n");
        RunWith(answers, [=, this] {
            std::filesystem::remove("bilag.txt");
            if (*meanwhile) shop.folder.Write("bilag.txt", meanwhile);
        });
        return Count("bilag.txt") + Told();
    };
    EXPECT_EQ(after({kYes, kYes}, ""), "\"2 @2 ");
    EXPECT_EQ(after({kYes, kYes}, "tirsdag\r\n"), "\"2 @2 t1 bilag.txt changed ");
    shop.settings.Overwrite = "1";
    EXPECT_EQ(after({kYes}, ""), "\"2 @2 ");
    EXPECT_EQ(after({kYes}, "tirsdag\r\n"), "\"2 @2 ");
}

TEST_F(Export, AWorkingCopyThatIsGoneAtTheAnswerIsToldBeforeAnythingIsNoted) {
    shop.folder.Write("ordre.edi", "gammel\r\n");
    for (const char* copy : {"ordre.edi.tmp", "bilag.txt.tmp"}) {
        for (const bool anotherIsThere : {false, true}) {
            fileexport::ExportRun run(shop.settings, shop.databases, shop.runState, shop.window,
                                      shop.theOperator, shop.clock, shop.textFiles);
            shop.theOperator.whileAsked = [&] {
                std::filesystem::rename(copy, "borte");
                if (anotherIsThere) shop.folder.Write(copy, "annen");
            };
            shop.theOperator.answers = {kYes};
            const std::string text =
                ExpectError(53, [&] { run.ExportDataSet(store::DataSet("K")); });
            EXPECT_NE(text.find(copy), std::string::npos) << text;
            EXPECT_FALSE(shop.folder.Has("KVDayEndServer.placing"));
            EXPECT_EQ(shop.folder.Read("ordre.edi"), "gammel\r\n");
            EXPECT_FALSE(shop.folder.Has("bilag.txt"));
            EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
        }
    }
}

// Where there is a second file system, the link leads there.
TEST_F(ImportFilesChange, ALinkStaysAndTheFileThatItMeansIsMadeOrExtendedInItsOwnFolder) {
    namespace fs = std::filesystem;
    const bool isShared = ::access("/dev/shm", W_OK) == 0;
    const fs::path other = (isShared ? fs::path("/dev/shm") : shop.folder.Path()) /
                           (shop.folder.Path().filename().string() + "-import");
    fs::create_directory(other);
    fs::create_symlink(other / "ordre.edi", "ordre.edi");
    fs::create_symlink(other / "bilag.txt", "bilag.txt");
    const auto expectCopiesThere = [&] {
        EXPECT_TRUE(fs::exists(other / "ordre.edi.tmp"));
        EXPECT_FALSE(shop.folder.Has("ordre.edi.tmp"));
    };
    RunWith({kYes}, expectCopiesThere);
    shop.WriteDataSet("K", {{}}, {{}});
    shop.theOperator.asked.clear();
    RunWith({kNo, kYes}, expectCopiesThere);
    EXPECT_TRUE(fs::is_symlink("ordre.edi"));
    EXPECT_TRUE(fs::is_symlink("bilag.txt"));
    EXPECT_EQ(Count("ordre.edi"), "71 H2 L2 ");
    EXPECT_EQ(Count("bilag.txt"), "\"4 @4 ");
    EXPECT_EQ(std::distance(fs::directory_iterator(other), fs::directory_iterator()), 2);

    shop.WriteDataSet("K", {{}}, {{}});
    shop.theOperator.asked.clear();
    shop.theOperator.whileAsked = [&] {
        if (shop.theOperator.asked.size() < 2) return;
        fs::remove("ordre.edi");
        fs::create_symlink("annen.edi", "ordre.edi");
    };
    shop.theOperator.answers = {kNo, kYes};
    const std::string text = ExpectError(75, [&] { exportRun.ExportDataSet(store::DataSet("K")); });
    EXPECT_EQ(text.find("ordre.edi leads to another file"), 0U) << text;
    EXPECT_EQ(Count("bilag.txt"), "\"4 @4 ");
    fs::remove_all(other);
}
