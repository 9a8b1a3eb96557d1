#include "sap/transfer_driver.h"

#include <gtest/gtest.h>

#include "tests/support/platform/expect_error.h"
#include "tests/support/sap/sap_shop.h"

using platform::Answer;
using support::ExpectError;
using support::Line;
using support::Sale;
using Texts = std::vector<std::string>;

namespace {

class Transfer : public testing::Test {
  protected:
    Transfer() { shop.WriteDataSet("K", {{.id = 1}}, {{.saleId = 1}}); }

    void Send(std::initializer_list<Answer> answers) {
        shop.theOperator.answers = answers;
        EXPECT_FALSE(shop.driver.TransferDataSetToSAP(store::DataSet("K")));
    }

    std::string Invoices() { return shop.AskCompany("SELECT NumAtCard FROM OINV"); }
    bool IsFinished() const { return shop.folder.Has("KDayEndSales.XML.200511161433.ferdig"); }

    support::SapShop shop;
};

constexpr Answer kYes = Answer::Yes;

}  // namespace

TEST_F(Transfer, YesCommitsAndMarksTheDataSet) {
    Send({kYes});
    EXPECT_EQ(Invoices(), "1|");
    EXPECT_TRUE(IsFinished());
    EXPECT_EQ(shop.AskCompany("SELECT name FROM sqlite_master WHERE type = 'index' AND sql <> ''"),
              "")
        << "what the transfer indexed for itself is gone";
    ExpectError(91, [&] { (void)shop.objects.SAPCompany->InTransaction(); });
}

TEST_F(Transfer, OptionsAreThoseOfTheDaysStart) {
    shop.WriteDataSet("K", {{.id = 1, .customerID = " "}}, {{.saleId = 1}});
    Send({Answer::No});
    shop.InStore(
        "UPDATE Options SET DefaultCustomerID = '1001', SAPSalesPriceList = 2, "
        "SAPCostPriceList = 0");
    shop.InStore("INSERT INTO Products (ID, Price, Status) VALUES ('P1', 5, 2)");
    Send({kYes});
    EXPECT_EQ(shop.AskCompany("SELECT CardCode FROM OINV"), "1001|");
    EXPECT_EQ(shop.AskCompany("SELECT PriceList FROM ITM1 WHERE Price = 5"), "2|");
}

TEST_F(Transfer, NoRollsTheDocumentsBackButNotTheMasterData) {
    shop.InStore(
        "INSERT INTO Customers (ID, Name, Status) VALUES ('2001', 'Ny', 1), "
        "('1001', 'Kjent fra før', 1), ('9', 'Ukjent endret', 2)");
    shop.InStore(
        "INSERT INTO Products (ID, Description, Price, Status) VALUES ('P1', 'A', 5, 2), "
        "('P9', 'B', NULL, 1)");
    Send({Answer::No});
    EXPECT_EQ(Invoices(), "");
    EXPECT_FALSE(IsFinished());
    EXPECT_EQ(shop.AskCompany("SELECT CardCode, CardName FROM OCRD"),
              "1001 NULL|KONTANT NULL|2001 Ny|");
    EXPECT_EQ(shop.AskStore("SELECT Status FROM Customers"), "0 1 2");
    EXPECT_EQ(shop.AskStore("SELECT Status FROM Products"), "0 0");
    EXPECT_EQ(shop.AskCompany("SELECT ItemCode, ItemName FROM OITM"), "P1 A|P2 NULL|P9 B|");
    EXPECT_EQ(shop.theOperator.shown.at(0), "Fikk ikke opprettet kunde 1001 - Kjent fra før");
}

TEST_F(Transfer, WhatTheStoreChangesWhileABoxStandsStillWaits) {
    shop.InStore(
        "INSERT INTO Customers (ID, Name, Status) VALUES ('1001', 'Kjent fra før', 1), "
        "('2001', 'Ny', 1), ('2002', 'Ny', 1)");
    shop.theOperator.whileShown = [this] {
        shop.InStore("UPDATE Customers SET Name = 'Nyere' WHERE ID = '2001'");
    };
    Send({kYes});
    // Created under the old name, then changed in the same run.
    EXPECT_EQ(shop.AskCompany("SELECT CardName FROM OCRD WHERE CardCode > '2'"), "Nyere|Ny|NULL|");
    EXPECT_EQ(shop.AskStore("SELECT Status FROM Customers"), "1 0 0");
}

TEST_F(Transfer, OneFailedReceiptRollsTheWholeDayBackWithoutAQuestion) {
    shop.WriteDataSet("K", {{.id = 1}, {.id = 2, .customerID = "X"}, {.id = 3}},
                      {{.saleId = 3}, {.saleId = 2}, {.saleId = 1}});
    Send({});
    EXPECT_TRUE(shop.runState.DataSetHasErrors);
    EXPECT_EQ(Invoices(), "");
    EXPECT_FALSE(IsFinished());
    EXPECT_TRUE(shop.folder.Has("SAP_ERR_1_2.xml"));

    shop.InCompany("INSERT INTO OCRD (CardCode) VALUES ('X')");
    Send({kYes});
    EXPECT_EQ(Invoices(), "1|2|3|");
}

TEST_F(Transfer, APaymentOnlyReceiptEndsTheProgramAndNothingIsCommitted) {
    shop.WriteDataSet(
        "K", {{.id = 1}, {.id = 2}},
        {{.saleId = 1}, {.saleId = 1, .transType = 15}, {.saleId = 2, .transType = 15}});
    ExpectError(13, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    shop.objects.SAPCompany.Release();
    EXPECT_EQ(Invoices(), "");
    EXPECT_FALSE(IsFinished());
}

TEST_F(Transfer, EarlyEnds) {
    shop.settings.SAPPassword = "feil";
    Send({});
    ASSERT_EQ(shop.theOperator.shown.size(), 1U);
    EXPECT_EQ(shop.theOperator.shown[0].find("Feil ved pålogging til SAP.\nSAP feilkode var -10: "),
              0U);
    EXPECT_EQ(shop.theOperator.shown[0].find("SAP feilkode var -10: feil"), std::string::npos);
    EXPECT_FALSE(shop.runState.DataSetHasErrors);

    shop.WriteDataSet("K", {}, {{}});
    Send({});
    EXPECT_EQ(shop.theOperator.shown.at(1), "Det er ingenting å overføre.");
    EXPECT_EQ(shop.theOperator.boxes, "!T iT ");
    ExpectError(91, [&] { (void)shop.runState.SalesRecordset->IsEof(); });

    std::filesystem::remove("KDayEndSalesLines.XML");
    Send({});
    EXPECT_EQ(shop.window.List,
              Texts{"Finner ikke filen med salgslinjer. Avslutter behandling av datasett."});
}

TEST_F(Transfer, NoDayEndLeavesTheDocumentsOut) {
    shop.settings.NoDayEnd = " 1,0 ";
    Send({kYes});
    EXPECT_TRUE(IsFinished());
    EXPECT_EQ(Invoices(), "");

    shop.WriteDataSet("K", {{.id = 1}}, {{.saleId = 1, .transType = 15}});
    ExpectError(91, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    shop.WriteDataSet("K", {{.id = 1}}, {{.saleId = 1}});
    shop.InStore("INSERT INTO Customers (ID, Status) VALUES ('7', 1)");
    ExpectError(91, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
}

// Documents are for numbers of 16 bits, but a receipt must not get the payments of another.
TEST_F(Transfer, LongReceiptNumbersAreToldApart) {
    shop.settings.NoDayEnd = "1";
    for (const char* type : {"i8", "r8", "string"}) {
        shop.WriteDataSet("K", {{.id = 1}}, {{.saleId = 1}, {.saleId = 2, .transType = 15}});
        shop.SpellReceiptNumbers("K", type, "9007199254740992", "9007199254740993");
        Send({Answer::No});
        shop.WriteDataSet("K", {{.id = 1}}, {{.saleId = 2}, {.saleId = 1, .transType = 15}});
        shop.SpellReceiptNumbers("K", type, "9007199254740992", "9007199254740993");
        // The payment of a receipt without sales, whose number the payment takes with 32 bits.
        ExpectError(6, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    }
}

TEST_F(Transfer, TwoDaysOneAfterTheOtherAndOrdersAmongThem) {
    shop.settings.SAPPassword = "";
    shop.WriteDataSet("K",
                      {{.id = 1, .type = 2}, {.id = 2, .type = 2}, {.id = 3, .customerID = "?"}},
                      {{.saleId = 1}, {.saleId = 2, .amount = -5.0, .qty = -1.0}, {.saleId = 3}});
    shop.theOperator.inputs = {"hemmelig"};
    Send({});
    EXPECT_TRUE(shop.runState.DataSetHasErrors);
    shop.WriteDataSet("K", {{.id = 4, .type = 2}}, {{.saleId = 4}});
    shop.theOperator.inputs = {"hemmelig"};
    Send({kYes});
    EXPECT_EQ(shop.AskCompany("SELECT Ref1 FROM ODLN"), "4|");
    EXPECT_EQ(shop.AskCompany("SELECT count(*) FROM ORDN"), "0|");
    EXPECT_TRUE(IsFinished());
}

TEST_F(Transfer, AMalformedSalesFileEndsBeforeTheLogonAMalformedLinesFileAfterTheMasterData) {
    shop.InStore("INSERT INTO Customers (ID, Name, Status) VALUES ('2001', 'Ny', 1)");
    const std::string whole = shop.folder.Read("KDayEndSales.XML");
    shop.folder.Write("KDayEndSales.XML", whole.substr(0, whole.size() - 20));
    ExpectError(321, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    EXPECT_FALSE(shop.objects.SAPCompany);
    shop.folder.Write("KDayEndSales.XML", whole);
    shop.folder.Write("KDayEndSalesLines.XML", whole.substr(0, whole.size() - 20));
    ExpectError(321, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    EXPECT_EQ(shop.AskStore("SELECT Status FROM Customers"), "0");
}

TEST_F(Transfer, NumbersThatDoNotFit) {
    shop.WriteDataSet("K", {{.id = 32768, .type = platform::Value()}}, {{.saleId = 32768}});
    const std::string text =
        ExpectError(6, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    shop.WriteDataSet("K", {{.id = 1}}, {{.amount = platform::Value()}});
    ExpectError(94, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    shop.WriteDataSet("K", {{.id = platform::Value()}}, {{}});
    ExpectError(3075, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    EXPECT_NE(text.find("Sale 32768"), std::string::npos) << text;
}

TEST_F(Transfer, ADayThatChangesAtTheQuestionIsNotCommitted) {
    shop.theOperator.whileAsked = [&] { shop.WriteDataSet("K", {{}, {.id = 2}}, {{}}); };
    shop.theOperator.answers = {kYes};
    const std::string text =
        ExpectError(75, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    EXPECT_EQ(text.find("KDayEndSales.XML has changed"), 0U) << text;
    shop.objects.SAPCompany.Release();
    EXPECT_EQ(Invoices(), "");
    EXPECT_EQ(shop.AskCompany("SELECT Code FROM \"@KVDAYEND\""), "");
    EXPECT_FALSE(IsFinished());
}

TEST_F(Transfer, ADayWhoseNamesCanNotBeGivenIsNotCommitted) {
    // In the way only when the names are taken.
    shop.theOperator.whileAsked = [&] {
        std::filesystem::create_directory("KDayEndSalesLines.XML.200511161433.ferdig");
    };
    shop.theOperator.answers = {kYes};
    ExpectError(75, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("K")); });
    shop.objects.SAPCompany.Release();
    EXPECT_EQ(Invoices(), "");
    EXPECT_FALSE(IsFinished());
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
}

class PostedDay : public Transfer {
  protected:
    // A server was ended after it committed the day: both names are there.
    PostedDay() {
        Send({kYes});
        for (const char* name : {"KDayEndSales.XML", "KDayEndSalesLines.XML"})
            std::filesystem::create_hard_link(std::string(name) + ".200511161433.ferdig", name);
    }

    void ExpectFinished() {
        EXPECT_EQ(Invoices(), "1|");
        EXPECT_TRUE(IsFinished());
        EXPECT_FALSE(shop.folder.Has("KDayEndSales.XML"));
        EXPECT_FALSE(shop.folder.Has("KDayEndSalesLines.XML"));
        EXPECT_EQ(shop.window.List, Texts{"Datasett K er ført i SAP fra før, og filene har nå fått "
                                          "ferdige navn."});
        EXPECT_FALSE(shop.objects.SAPCompany);
    }
};

TEST_F(PostedDay, IsFinishedAtTheNextStart) {
    shop.driver.FinishPostedDays();
    ExpectFinished();
}

TEST_F(PostedDay, IsFinishedBesideOneThatCanNotBe) {
    shop.WriteDataSet("A", {{.id = 2}}, {{.saleId = 2}});
    shop.theOperator.answers = {kYes};
    EXPECT_FALSE(shop.driver.TransferDataSetToSAP(store::DataSet("A")));
    for (const char* name : {"ADayEndSales.XML", "ADayEndSalesLines.XML"}) {
        const std::string finished = std::string(name) + ".200511161433.ferdig";
        std::filesystem::rename(finished, name);
        std::filesystem::create_directory(finished);
    }
    shop.driver.FinishPostedDays();
    EXPECT_FALSE(shop.folder.Has("KDayEndSales.XML"));
    EXPECT_TRUE(shop.folder.Has("ADayEndSales.XML"));
    ExpectError(75, [&] { shop.driver.TransferDataSetToSAP(store::DataSet("A")); });
    EXPECT_EQ(Invoices(), "1|2|");
}

TEST_F(PostedDay, IsFinishedWhereItsSalesFileWasFinished) {
    std::filesystem::remove("KDayEndSales.XML");
    shop.folder.Write("LDayEndSalesLines.XML", "whose sales are still to come");
    shop.driver.FinishPostedDays();
    EXPECT_FALSE(shop.folder.Has("KDayEndSalesLines.XML"));
    EXPECT_TRUE(shop.folder.Has("KDayEndSalesLines.XML.200511161433.ferdig"));
    EXPECT_TRUE(shop.folder.Has("LDayEndSalesLines.XML"));
}

TEST_F(PostedDay, IsFinishedWhenItIsBegunWhereTheSettingsLackThePassword) {
    shop.settings.SAPPassword = "";
    shop.driver.FinishPostedDays();
    EXPECT_TRUE(shop.folder.Has("KDayEndSales.XML"));
    shop.theOperator.inputs = {"hemmelig"};
    Send({});
    ExpectFinished();
}

TEST_F(PostedDay, IsPostedAnewInACompanyWithoutMarks) {
    shop.InCompany("DROP TABLE \"@KVDAYEND\"");
    shop.driver.FinishPostedDays();
    Send({kYes});
    EXPECT_EQ(Invoices(), "1|1|");
}

TEST_F(Transfer, ARolledBackDayHasNoMark) {
    Send({Answer::No});
    EXPECT_EQ(shop.AskCompany("SELECT Code FROM \"@KVDAYEND\""), "");
    Send({kYes});
    EXPECT_EQ(Invoices(), "1|");
}
