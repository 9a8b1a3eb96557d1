#include "sap/sales_document.h"

#include <gtest/gtest.h>

#include "tests/support/platform/expect_error.h"
#include "tests/support/sap/sap_shop.h"

using platform::Value;
using support::Line;
using support::Sale;
using Texts = std::vector<std::string>;

namespace {

class SalesDocument : public testing::Test {
  protected:
    SalesDocument() { shop.Connect(); }

    // Sends the first sale as the driver does, inside a transaction that stays open.
    void Send(const Sale& sale, const std::vector<Line>& lines) {
        shop.WriteDataSet("K", {sale}, lines);
        ui::OpenPersistConnection(shop.runState);
        shop.runState.SalesRecordset =
            shop.runState.PersistConnection->OpenRecordset("KDayEndSales.XML");
        const sap::SaleLines saleLines(*shop.runState.PersistConnection, "KDayEndSalesLines.XML");
        const auto view = saleLines.Open(sap::LineKind::Items, sale.id);
        double total = 0;
        for (; !view->IsEof(); view->MoveNext())
            total += *view->Get("Amount").AsFloating();
        sap::CreateSalesDocument(shop.context, saleLines,
                                 store::Sale(*shop.runState.SalesRecordset), total,
                                 view->RecordCount());
    }

    // Which tables hold documents.
    std::string Documents() {
        std::string found;
        for (const char* table : {"OINV", "ORIN", "ODLN", "ORDN", "ORDR"}) {
            if (shop.AskCompany(std::string("SELECT count(*) FROM ") + table) != "0|") {
                found += table;
            }
        }
        return found;
    }

    support::SapShop shop;
};

}  // namespace

TEST_F(SalesDocument, TypeAndSignChooseTheKind) {
    struct Case {
        int type;
        double amount;
        const char* sapOrders;
        const char* table;
    };
    const Case cases[] = {{1, 250, "1", "OINV"}, {1, 0, "", "ORIN"},   {1, -99.5, "", "ORIN"},
                          {2, 250, "1", "ORDR"}, {2, 250, "", "ODLN"}, {2, 250, "ja", "ODLN"},
                          {2, -1, "1", "ORDN"},  {2, 0, "", "ORDN"},   {3, 250, "1", ""}};
    for (const Case& each : cases) {
        for (const char* table : {"OINV", "ORIN", "ODLN", "ORDN", "ORDR"}) {
            shop.InCompany(std::string("DELETE FROM ") + table);
        }
        shop.settings.SAPOrders = each.sapOrders;
        Send({.type = each.type}, {{.amount = each.amount}});
        EXPECT_EQ(Documents(), each.table) << &each - cases;
    }
}

TEST_F(SalesDocument, ReceiptHeaderAndLines) {
    Send({.id = 17,
          .customerID = " ",
          .customerName = " Bø AS ",
          .project = "12",
          .ourRef = " Kari ",
          .selBuy = 3},
         {{.saleId = 17, .amount = 30.0, .qty = 3.0, .discount = 12.345, .salesAccount = 0},
          {.saleId = 17,
           .transType = 2,
           .amount = 5.0,
           .productID = " p2",
           .description = Value(),
           .salesAccount = Value()},
          {.saleId = 17, .transType = 10, .amount = -35.0},
          {.saleId = 17, .amount = 9.0, .productID = "AVRUNDING"},
          {.saleId = 17, .amount = 9.0, .productID = Value()},
          {.saleId = 18, .amount = 1.0}});
    EXPECT_EQ(shop.AskCompany("SELECT * FROM OINV"),
              "1 1 KONTANT Bø AS 17 17 17 2005-11-16 2005-11-16 Salg 17 fra Kassovia. Kari 3 Y|");
    EXPECT_EQ(shop.AskCompany("SELECT * FROM INV1"),
              "1 0 P1 Blåbærsyltetøy 3 10 12,35 3000 12       7|1 1 p2   1 5 0   12       7|");
    EXPECT_TRUE(shop.theOperator.shown.empty());
    EXPECT_EQ(shop.AskCompany("SELECT count(*) FROM OJDT"), "0|") << "no payment is booked";
}

TEST_F(SalesDocument, OrderHeaderAndLines) {
    shop.InCompany("INSERT INTO OITM (ItemCode) VALUES ('Avrunding')");
    shop.settings.SAPOrders = "1";
    Send(
        {.id = 17, .type = 2, .customerID = "1001 ", .yourRef = " 12345678901234567 ", .selBuy = 0},
        {{.saleId = 17, .amount = 30.0}, {.saleId = 17, .amount = 1.0, .productID = "Avrunding"}});
    EXPECT_EQ(shop.AskCompany("SELECT CardCode, NumAtCard, Ref1, SlpCode, Printed FROM ORDR"),
              "1001  1234567890123456 17 NULL N|");
    EXPECT_EQ(shop.AskCompany("SELECT LineNum, ItemCode, Price, AcctCode, Project FROM RDR1"),
              "0 P1 30 NULL         |1 Avrunding 1 NULL         |");
}

TEST_F(SalesDocument, PricesAndQuantitiesOfEverySign) {
    struct Case {
        int type;
        double qty;
        double amount;
        const char* line;  // quantity and price
        const char* message;
    };
    const char* const positive = "Pris settes positiv og antallet negativt.";
    const char* const zero = "Pris settes til 0,00";
    const Case cases[] = {
        {1, 2, -30, "-2 15", positive}, {1, -2, -30, "-2 15", ""}, {1, 1, 0, "1 0", ""},
        {1, 0, 5, "0 NULL", ""},        {1, 3, 10, "3 3,33", ""},  {2, 2, -30, "2 15", zero},
        {2, -2, -30, "-2 15", ""},      {2, 1, 0, "1 0", zero},    {2, 0, 5, "0 NULL", ""},
    };
    for (const Case& each : cases) {
        shop.theOperator.shown.clear();
        // A second line makes the sale an invoice or delivery whatever the first one is.
        Send({.type = each.type}, {{.amount = each.amount, .qty = each.qty}, {.amount = 999.0}});
        const std::string table = each.type == 1 ? "INV1" : "DLN1";
        EXPECT_EQ(shop.AskCompany("SELECT Quantity, Price FROM " + table +
                                  " WHERE LineNum = 0 ORDER BY DocEntry DESC LIMIT 1"),
                  std::string(each.line) + "|")
            << &each - cases;
        const std::string message =
            *each.message == 0
                ? ""
                : std::string("Feil i prising. Pris kan ikke være mindre enn null. ") +
                      each.message + "\nBong = 1, Produkt = P1";
        EXPECT_EQ(shop.theOperator.shown, message.empty() ? Texts{} : Texts{message});
    }
    shop.theOperator.shown.clear();
    Send({.type = 1}, {{.amount = -30.0, .qty = -2.0}, {.amount = -10.0, .qty = 1.0}});
    EXPECT_EQ(shop.AskCompany("SELECT Quantity, Price FROM RIN1"), "2 15|-1 10|");
}

TEST_F(SalesDocument, AFailedDocumentIsToldKeptAsAFileAndFollowedByANewTransaction) {
    shop.objects.SAPCompany->StartTransaction();
    Send({.id = 17, .customerID = "ukjent"}, {{.saleId = 17}});
    ASSERT_EQ(shop.theOperator.shown.size(), 2U);
    EXPECT_EQ(shop.theOperator.shown[0], "Fikk ikke lagt til bong 17");
    EXPECT_EQ(shop.theOperator.shown[1].find("Found error:-2028,"), 0U);
    EXPECT_TRUE(shop.runState.DataSetHasErrors);
    EXPECT_NE(shop.folder.Read("SAP_ERR_1_17.xml").find("ukjent"), std::string::npos);
    EXPECT_TRUE(shop.objects.SAPCompany->InTransaction());
    EXPECT_EQ(shop.theOperator.boxes, "!T !T ");
    Send({.id = 18, .type = 2}, {{.saleId = 18, .productID = "X"}});
    EXPECT_EQ(shop.theOperator.shown[2], "Fikk ikke lagt til dokument 18");
    EXPECT_TRUE(shop.folder.Has("SAP_ERR_2_18.xml"));
}

TEST_F(SalesDocument, NothingIsSentWithoutItemLinesOrWithANumberOfZero) {
    Send({.id = 0}, {{.saleId = 0}});
    Send({.id = -4}, {{.saleId = -4}});
    Send({.id = 5}, {{.saleId = 5, .transType = 10}, {.saleId = 6}});
    EXPECT_EQ(Documents(), "");
    EXPECT_TRUE(shop.theOperator.shown.empty());
}

TEST_F(SalesDocument, BadValuesAreErrors) {
    support::ExpectError(13, [&] { Send({.date = 0}, {{}}); });
    support::ExpectError(13, [&] { Send({.date = 20051340}, {{}}); });
    support::ExpectError(13, [&] { Send({}, {{.qty = Value()}}); });
    support::ExpectError(13, [&] { Send({}, {{.discount = Value()}}); });
}
