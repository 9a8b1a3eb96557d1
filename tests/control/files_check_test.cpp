// Settings, databases and files: what keeps a run from starting or stops it.

#include <filesystem>
#include <functional>

#include "control/findings_json.h"
#include "control/findings_text.h"
#include "platform/text.h"
#include "tests/control/control_fixture.h"

namespace control {

namespace {

std::string With(std::string text, const std::string& old, const std::string& replacement) {
    const std::size_t at = text.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return at == std::string::npos ? text : text.replace(at, old.size(), replacement);
}

}  // namespace

TEST_F(ControlTest, FaultsOfTheSettings) {
    const struct {
        const char* name;
        std::function<void(app::AppSettings&)> set;
        std::string found;
    } cases[] = {
        {"no name", [](auto& s) { s.EDIFileName = ""; }, "K001 EDIFileName=\n"},
        {"no folder", [](auto& s) { s.VoucherFileName = "borte\\bilag.txt"; },
         "K001 VoucherFileName=borte\\bilag.txt\n"},
        {"a folder", [](auto& s) { s.VoucherFileName = "data"; }, "K001 VoucherFileName=data\n"},
        {"one file in two spellings", [](auto& s) { s.EDIFileName = "data\\..\\bilag.txt"; },
         "K002 EDIFileName=data\\..\\bilag.txt\n"},
        {"overwriting with one day", [](auto& s) { s.Overwrite = "1"; }, ""},
        {"SAP in small letters", [](auto& s) { s.AccountingSystem = " sap"; },
         "K007w AccountingSystem= sap\n"},
        {"another package", [](auto& s) { s.AccountingSystem = "Global"; }, ""},
        {"a command that is not there", [](auto& s) { s.DayEndCommand = "/borte/etter --nå"; },
         "K008w DayEndCommand=/borte/etter --nå\n"},
        {"a command that is there", [](auto& s) { s.DayEndCommand = "true 'a b'"; }, ""},
    };
    const app::AppSettings usual = shop_.settings;
    for (const auto& each : cases) {
        shop_.settings = usual;
        each.set(shop_.settings);
        EXPECT_EQ(Check(CleanDay()), each.found) << each.name;
    }
}

TEST_F(ControlTest, WhatIsOverwritten) {
    shop_.folder.Write("bilag.txt", "");
    shop_.WriteDataSet("Kasse2", CleanDay().sales, CleanDay().lines);
    EXPECT_EQ(Check(CleanDay()), "K003n VoucherFileName=bilag.txt\n");
    shop_.settings.Overwrite = "1";
    EXPECT_EQ(Check({"kasse1"}), "K003w VoucherFileName=bilag.txt\nK004w Overwrite=2\n");
}

TEST_F(ControlTest, MissingPartsOfTheDatabases) {
    shop_.WriteDataSet("Kasse1", CleanDay().sales, CleanDay().lines);
    shop_.InStore("UPDATE Options SET NextVoucherNo = NULL");
    EXPECT_EQ(Check(), "K005 NextVoucherNo\n");
    shop_.InStore("ALTER TABLE Options RENAME COLUMN CreditToOrder TO Credit");
    EXPECT_EQ(Check(), "K006 Tabellen Options=den mangler en kolonne\n");
    shop_.InStore("ALTER TABLE Options RENAME COLUMN Credit TO CreditToOrder");
    shop_.InStore("DELETE FROM Options");
    EXPECT_EQ(Check(), "K005 butikkens rad\n");
    shop_.InStore("DROP TABLE SelBuy");
    shop_.InStore("CREATE TABLE Copy AS SELECT * FROM Customers");
    shop_.InStore("DROP TABLE Customers");
    shop_.InStore("ALTER TABLE Copy RENAME TO Customers");
    shop_.InWork("DROP TABLE SalesLines");
    EXPECT_EQ(Check(),
              "K005 butikkens rad\n"
              "K006 Primærnøkkelen til tabellen Customers=tabellen er der, men nøkkelen er borte\n"
              "K006 Tabellen SelBuy=den finnes ikke i databasen\n"
              "K006 Tabellen SalesLines i arbeidsdatabasen=den finnes ikke i databasen\n");
    shop_.settings.Datapath = "borte";
    EXPECT_EQ(Check(),
              "K006 borte\\Kassovia.mdb=filen finnes ikke\n"
              "K006 borte\\KVDayEndServer.mdb=filen finnes ikke\n");
}

TEST_F(ControlTest, FilesThatCanNotBeRead) {
    shop_.WriteDataSet("Kasse1", CleanDay().sales, CleanDay().lines);
    const std::string sales = shop_.folder.Read("Kasse1DayEndSales.XML");
    const std::string lines = shop_.folder.Read("Kasse1DayEndSalesLines.XML");
    const struct {
        const char* file;
        std::string content;
        std::string found;  // after the line and the name of the file
    } cases[] = {
        {"Kasse1DayEndSales.XML", sales.substr(0, sales.size() - 20),
         "filen slutter for tidlig, den er kuttet av\n"},
        {"Kasse1DayEndSalesLines.XML", With(lines, "<z:row", "<z:row <"),
         "innholdet er ikke gyldig XML\n"},
        {"Kasse1DayEndSales.XML", "", "filen slutter for tidlig, den er kuttet av\n"},
    };
    for (const auto& [file, content, found] : cases) {
        shop_.folder.Write("Kasse1DayEndSales.XML", sales);
        shop_.folder.Write("Kasse1DayEndSalesLines.XML", lines);
        shop_.folder.Write(file, content);
        const std::string said = Check();
        EXPECT_TRUE(said.starts_with("K102:")) << said;
        EXPECT_TRUE(said.ends_with(std::string(file) + "=" + found)) << said;
    }
    shop_.folder.Write("Kasse1DayEndSalesLines.XML", lines);
    shop_.folder.Write("Kasse1DayEndSales.XML", With(sales, "SalesType='1'", "SalesType='en'"));
    EXPECT_EQ(Check(), "K105 SalesType=en\n") << "a value that the file's own column does not take";
}

TEST_F(ControlTest, ColumnsAndValuesThatTheWorkTableDoesNotTake) {
    shop_.WriteDataSet("Kasse1", CleanDay().sales, CleanDay().lines);
    const std::string lines = shop_.folder.Read("Kasse1DayEndSalesLines.XML");
    shop_.InWork("ALTER TABLE SalesLines RENAME COLUMN String1 TO Reference");
    EXPECT_EQ(Check(), "K104w Reference=String1\n");
    shop_.InWork("ALTER TABLE SalesLines ADD COLUMN Batch INTEGER");
    EXPECT_EQ(Check(), "K103 Batch=14\nK104w Reference=String1\n");
    shop_.InWork("DROP TABLE SalesLines");
    shop_.InWork(
        "CREATE TABLE SalesLines (SalesID INTEGER, LineNo INTEGER, SalesDate INTEGER, TransType "
        "SMALLINT, ProductID INTEGER)");
    EXPECT_EQ(Check(), "K105 1:1 ProductID=P1\nK105 2:1 ProductID=P1\n");
}

TEST_F(ControlTest, DataSetsWithOneFile) {
    shop_.WriteDataSet("Kasse1", CleanDay().sales, CleanDay().lines);
    shop_.WriteDataSet("Kasse2", CleanDay().sales, CleanDay().lines);
    shop_.WriteDataSet("", CleanDay().sales, CleanDay().lines);
    std::filesystem::remove("Kasse1DayEndSalesLines.XML");
    std::filesystem::remove("Kasse2DayEndSales.XML");
    std::filesystem::remove("DayEndSales.XML");
    EXPECT_EQ(Check(),
              "K101 <Uten navn>=DayEndSales.XML\n"
              "K101=Kasse1DayEndSalesLines.XML\n"
              "K101 Kasse2=Kasse2DayEndSales.XML\n");
}

TEST_F(ControlTest, AnUnnamedDaySalesFileAloneIsNotOverlooked) {
    shop_.WriteDataSet("", CleanDay().sales, CleanDay().lines);
    std::filesystem::remove("DayEndSalesLines.XML");
    EXPECT_EQ(Check(), "K101 <Uten navn>=DayEndSalesLines.XML\n");
}

// A server was ended between the two files of a day that is done.
TEST_F(ControlTest, ADayThatIsFinishedButForItsLinesFileIsNone) {
    shop_.WriteDataSet("Kasse1", CleanDay().sales, CleanDay().lines);
    std::filesystem::remove("Kasse1DayEndSales.XML");
    std::filesystem::create_hard_link("Kasse1DayEndSalesLines.XML",
                                      "Kasse1DayEndSalesLines.XML.200511161433.ferdig");
    EXPECT_EQ(Check(), "");
}

TEST_F(ControlTest, NamesAreFoundInAnyCaseTheExactOneFirst) {
    for (const char* name : {"Kasse1", "Ås"})
        shop_.WriteDataSet(name, CleanDay().sales, CleanDay().lines);
    for (const std::string file : {"DayEndSales.XML", "DayEndSalesLines.XML"})
        std::filesystem::copy("Kasse1" + file, "KASSE1" + file);
    EXPECT_EQ(Result({"KASSE1"}).checked, std::vector<std::string>{"KASSE1"});
    EXPECT_EQ(Result({"ås", "ÅS"}).checked, std::vector<std::string>{"Ås"}) << "once";
    const CheckResult result = Result({"Borte", "Kasse1"});
    EXPECT_EQ(result.unknown, std::vector<std::string>{"Borte"});
    EXPECT_EQ(result.checked, std::vector<std::string>{"Kasse1"});
}

TEST_F(ControlTest, Outputs) {
    Day day = CleanDay();
    day.lines[1].amount = -112.5;
    shop_.WriteDataSet("Kasse1", day.sales, day.lines);
    shop_.WriteDataSet("Kasse2", CleanDay().sales, CleanDay().lines);
    const CheckResult result = Result();
    const std::string json = FindingsJson(result.findings);
    EXPECT_TRUE(
        json.starts_with("{\n  \"findings\": [\n    {\n      \"code\": \"K302\",\n"
                         "      \"severity\": \"error\",\n"
                         "      \"dataSet\": \"Kasse1\",\n      \"sale\": \"1\",\n"
                         "      \"line\": null,\n      \"field\": \"Amount\",\n"
                         "      \"value\": \"12,50\",\n      \"text\": \"Linjene"))
        << json;
    EXPECT_EQ(FindingsJson({}), "{\n  \"findings\": []\n}\n");
    const std::string text = FindingsText(result);
    EXPECT_TRUE(
        text.starts_with("Datasett Kasse1\n  K302 feil (bong 1): Linjene på bongen blir "
                         "til sammen 12,50, ikke 0,00"))
        << text;
    EXPECT_NE(text.find("Datasett Kasse2: ingenting å bemerke.\n"), std::string::npos) << text;
}

}  // namespace control
