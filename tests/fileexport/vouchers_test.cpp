#include "fileexport/vouchers.h"

#include <gtest/gtest.h>

#include <sstream>

#include "store/import.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/ui/test_shop.h"

using platform::Value;
using support::ExpectError;
using support::Line;
using support::Sale;
using support::TestShop;
using Texts = std::vector<std::string>;

namespace {

class VoucherFile : public testing::Test {
  protected:
    void Open(const std::vector<Sale>& sales, const std::vector<Line>& lines) {
        shop.WriteDataSet("K", sales, lines);
        OpenDataSet();
    }

    void OpenDataSet() {
        store::ImportDataSet(store::WaitingFiles(store::DataSet("K")),
                             *shop.databases.WorkConnection);
        ui::OpenPersistConnection(shop.runState);
        shop.runState.SalesRecordset =
            shop.runState.PersistConnection->OpenRecordset("KDayEndSales.XML");
    }

    void Post() {
        const auto file = shop.textFiles.OpenForOutput("bilag.txt");
        fileexport::Vouchers(*file, counter,
                             {*shop.databases.WorkConnection, *shop.runState.SalesRecordset,
                              store::Options(shop.databases.OptionsTable), shop.clock,
                              shop.runState.SalesLinesRecordset})
            .Write();
    }

    // The postings of a data set in short: type, text, debit account/VAT, credit account/VAT,
    // amount, and the references where there are any.
    Texts Postings(const std::vector<Sale>& sales, const std::vector<Line>& lines) {
        Open(sales, lines);
        Post();
        return ReadPostings();
    }

    Texts ReadPostings() const {
        Texts postings;
        std::istringstream text(shop.Text("bilag.txt"));
        int line = 0;
        for (std::string record; std::getline(text, record);) {
            if (++line <= 5) continue;
            Texts v;
            for (std::size_t at = 1; at < record.size();) {
                const std::size_t end = record.find('"', at);
                v.push_back(record.substr(at, end - at));
                at = end + 3;
            }
            postings.push_back(v.at(2) + " " + v[3] + " D" + v[5] + "/" + v[6] + " K" + v[8] + "/" +
                               v[9] + " " + v[10] + " " + v[11] + v[13]);
        }
        return postings;
    }

    TestShop shop;
    fileexport::RecordCounter counter = 0;
};

}  // namespace

TEST_F(VoucherFile, BatchAndTheValuesThatAllRecordsShare) {
    Open({{}}, {{}});
    Post();
    EXPECT_EQ(
        shop.Text("bilag.txt"),
        "@WaBnd (ValDt, Descr, Susp)\n"
        "\"20051116\" \"Overføring fra butikkdata\" \"1\"\n"
        "\n"
        "@WaVo (VoNo, VoDt, VoTp, Txt, DbAcCl, DbAcNo, DbTxCd, CrAcCl, CrAcNo, CrTxCd, Am, "
        "InvoNo, Ref, AgRef, Task, DueDt, R1, R2, R3, R4, R5, R6)\n"
        "\n"
        R"("500" "20051116" "11" "Salg" "0" "0" "0" "0" "3000" "3" "100" "" "" "" "0" "0" "7" )"
        R"("0" "0" "0" "0" "0")"
        "\n");
    EXPECT_EQ(shop.AskStore("SELECT NextVoucherNo FROM Options"), "501");
    EXPECT_EQ(shop.runState.SalesRecordset->IsEof(), true);
    ExpectError(91, [&] { (void)shop.runState.SalesLinesRecordset->IsEof(); });
}

TEST_F(VoucherFile, SalesByDateAccountAndVat) {
    EXPECT_EQ(Postings({{.id = 1},
                        {.id = 2, .type = 2, .date = 20051115},
                        {.id = 3, .type = 3},
                        {.id = 4, .status = 1},
                        {.id = 5, .date = Value()}},
                       {{.saleId = 1, .amount = 0.1},
                        {.saleId = 1, .transType = 2, .amount = 0.2},
                        {.saleId = 1, .amount = -0.3},
                        {.saleId = 1, .amount = 50.0, .vatCode = 31, .salesAccount = 0},
                        {.saleId = 1, .amount = -20.5, .vatCode = 0, .salesAccount = 3010},
                        {.saleId = 1, .amount = 99.0, .salesAccount = -1},
                        {.saleId = 1, .amount = 99.0, .salesAccount = Value()},
                        {.saleId = 2, .amount = 7.0, .vatCode = Value()},
                        {.saleId = 3},
                        {.saleId = 4},
                        {.saleId = 5, .amount = 5.0}}),
              (Texts{"11 Salg D0/0 K3000/3 5 ", "11 Salg D0/0 K3000/3 7 ",
                     "11 Salg D0/0 K3000/31 50 ", "11 Salg D3010/3 K0/0 20,5 "}))
        << "null date first, the sum of 0.1, 0.2 and -0.3 is nothing";
}

TEST_F(VoucherFile, TheNumberAdvancesWithoutAnyPostingToo) {
    EXPECT_EQ(Postings({{.status = 1}}, {{}}), Texts{});
    EXPECT_EQ(shop.AskStore("SELECT NextVoucherNo FROM Options"), "501");
}

TEST_F(VoucherFile, RoundingOfReceiptsOnly) {
    const std::vector<Sale> sales = {{.id = 1}, {.id = 2, .type = 2}};
    const std::vector<Line> lines = {
        {.saleId = 1, .transType = 0, .amount = -0.37, .productID = "AVRUNDING"},
        {.saleId = 1, .transType = 0, .amount = 9.0, .productID = "Annet"},
        {.saleId = 2, .transType = 0, .amount = 0.5, .productID = "Avrunding"}};
    EXPECT_EQ(Postings(sales, lines), Texts{"39 Avrunding D7740/0 K0/0 0,37 "});
    shop.InStore("UPDATE Options SET Long1 = NULL");
    EXPECT_EQ(Postings(sales, lines), Texts{"39 Avrunding D0/0 K0/0 0,37 "});
}

TEST_F(VoucherFile, PaymentsByCodeAlsoWithSumZero) {
    const auto payment = [](int code, double amount) {
        return Line{.transType = code, .amount = amount};
    };
    EXPECT_EQ(Postings({{.type = 2}},
                       {payment(27, 5), payment(21, -80.25), payment(16, -3), payment(12, 10),
                        payment(12, -10), payment(11, 4), payment(10, -500), payment(20, 1),
                        payment(28, 1), payment(17, 1)}),
              (Texts{"88 Kontanter D1900/0 K0/0 500 ", "88 Tilbake D0/0 K1900/0 4 ",
                     "88 Bank D1920/0 K0/0 0 ", "1 Tilgodelapp D2905/0 K0/0 3 ",
                     "88 Bankkort D1581/0 K0/0 80,25 ", "88 Gavekort D0/0 K1587/0 5 "}));
    shop.InStore("UPDATE Options SET CashAccount = NULL");
    ExpectError(94, [&] { (void)Postings({{}}, {payment(10, 1)}); });
}

TEST_F(VoucherFile, CustomersAccountsByReceipt) {
    const std::vector<Sale> sales = {{.id = 2, .type = 3}, {.id = 1, .status = 1}};
    const std::vector<Line> lines = {
        {.saleId = 1, .transType = 15, .amount = 300.0, .string1 = " F17 ", .lineNo = 2},
        {.saleId = 1, .transType = 14, .amount = 0.0, .lineNo = 1},
        {.saleId = 2, .transType = 13, .amount = -45.5},
        {.saleId = 1, .transType = 13, .amount = 2.0, .lineNo = 2}};
    const Texts expected = {
        "11 Kredittsalg D1001/0 K0/0 45,5 BONG2", "3 Forskuddsbetaling D1001/0 K0/0 0 BONG1",
        "3 Betaling D0/0 K1001/0 300 F17", "11 Kredittsalg D0/0 K1001/0 2 BONG1"};
    EXPECT_EQ(Postings(sales, lines), expected);
    for (const char* creditToOrder : {"1", "NULL"}) {
        shop.InStore(std::string("UPDATE Options SET CreditToOrder = ") + creditToOrder);
        EXPECT_EQ(Postings(sales, lines), Texts{}) << creditToOrder;
    }
    shop.InStore("UPDATE Options SET CreditToOrder = 0");
    ExpectError(13, [&] { (void)Postings({{.customerID = "Hansen"}}, {{.transType = 13}}); });
    ExpectError(94, [&] { (void)Postings({{.customerID = Value()}}, {{.transType = 15}}); });
}

// Numbers that are one floating-point number, and one text of 15 digits.
TEST_F(VoucherFile, ReceiptsWhoseNumbersDifferInTheLastOfManyDigits) {
    const auto post = [&](const char* type, const char* first, const char* second) {
        shop.WriteDataSet("K", {{.id = 1}, {.id = 2}},
                          {{.saleId = 1, .transType = 13, .amount = -30.0},
                           {.saleId = 2, .transType = 13, .amount = -40.0},
                           {.saleId = 1, .amount = 30.0},
                           {.saleId = 2, .amount = 40.0}});
        shop.SpellReceiptNumbers("K", type, first, second);
        OpenDataSet();
        Post();
        return ReadPostings();
    };
    const auto expected = [](const std::string& first, const std::string& second) {
        return Texts{"11 Salg D0/0 K3000/3 70 ", "11 Kredittsalg D1001/0 K0/0 30 BONG" + first,
                     "11 Kredittsalg D1001/0 K0/0 40 BONG" + second};
    };
    for (const char* type : {"i8", "string", "ui8"}) {
        EXPECT_EQ(post(type, "9007199254740992", "9007199254740993"),
                  expected("9007199254740992", "9007199254740993"))
            << type;
        EXPECT_EQ(post(type, "12345678901234567", "12345678901234568"),
                  expected("12345678901234567", "12345678901234568"))
            << type;
    }
    for (const char* type : {"r8", "r4", "number", "decimal", "numeric"}) {
        EXPECT_EQ(post(type, "9007199254740993", "9007199254740992"),
                  expected("9,00719925474099E+15", "9,00719925474099E+15"))
            << type;
        EXPECT_EQ(post(type, "1.2345678901234567E+16", "12345678901234568.00"),
                  expected("1,23456789012346E+16", "1,23456789012346E+16"))
            << type;
    }
}

TEST_F(VoucherFile, CreditToOrderLeavesOrdersOutOfTheSales) {
    for (const auto& [creditToOrder, sales] : {std::pair{"1", "10"}, {"0", "30"}, {"NULL", "30"}}) {
        shop.InStore(std::string("UPDATE Options SET CreditToOrder = ") + creditToOrder);
        EXPECT_EQ(Postings({{.id = 1}, {.id = 2, .type = 2}},
                           {{.saleId = 1, .amount = 10.0},
                            {.saleId = 2, .amount = 20.0},
                            {.saleId = 2, .transType = 10, .amount = -20.0}}),
                  (Texts{std::string("11 Salg D0/0 K3000/3 ") + sales + " ",
                         "88 Kontanter D1900/0 K0/0 20 "}));
    }
}

TEST_F(VoucherFile, ASaleOfType0EndsTheExportWithTheSalesBeforeItMarked) {
    Open({{.id = 1}, {.id = 2, .type = 0}, {.id = 3}},
         {{.saleId = 1, .transType = 13, .amount = 5.0}, {.saleId = 3, .transType = 13}});
    ExpectError(3704, [&] { Post(); });
    EXPECT_EQ(ReadPostings(), Texts{"11 Kredittsalg D0/0 K1001/0 5 BONG1"});
    EXPECT_EQ(shop.AskStore("SELECT NextVoucherNo FROM Options"), "500");
    platform::database::ClientRecordset& sales = *shop.runState.SalesRecordset;
    EXPECT_EQ(sales.Get("ID"), Value(2));
    EXPECT_EQ(sales.Get("SalesStatus"), Value(0));
    sales.MoveFirst();
    EXPECT_EQ(sales.Get("SalesStatus"), Value(1));
    EXPECT_EQ(sales.Get("DayEndDate"), Value(shop.clock.Now()));
}
