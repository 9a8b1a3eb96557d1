#include "fileexport/export_run.h"

#include <gtest/gtest.h>

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
