#include "fileexport/order_file.h"

#include <gtest/gtest.h>

#include <limits>

#include "fileexport/order_record.h"
#include "platform/norwegian.h"

#include "tests/support/platform/expect_error.h"
#include "tests/support/ui/test_shop.h"

using support::Line;
using support::Sale;
using support::TestShop;

namespace {

std::vector<std::string> Split(const std::string& text, char mark) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == mark) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

class OrderFile : public testing::Test {
  protected:
    // The lines of the order file of a data set.
    std::vector<std::string> Write(const std::vector<Sale>& sales, const std::vector<Line>& lines) {
        shop.WriteDataSet("K", sales, lines);
        ui::OpenPersistConnection(shop.runState);
        shop.runState.SalesRecordset =
            shop.runState.PersistConnection->OpenRecordset("KDayEndSales.XML");
        const auto file = shop.textFiles.OpenForOutput("ordre.edi");
        const auto orderLines =
            shop.runState.PersistConnection->OpenForwardOnly("KDayEndSalesLines.XML");
        fileexport::WriteOrderFileBody(
            *file, counter,
            {*shop.runState.SalesRecordset, *orderLines,
             store::Options(shop.databases.OptionsTable), shop.databases});
        file->Close();
        std::vector<std::string> written = Split(shop.Text("ordre.edi"), '\n');
        written.pop_back();
        return written;
    }

    TestShop shop;
    fileexport::RecordCounter counter = 0;
};

// The positions (from 1) of a line that hold something else than a single blank.
std::string Filled(const std::string& line, std::size_t positions) {
    const std::vector<std::string> parts = Split(line, ';');
    EXPECT_EQ(parts.size(), positions) << line;
    std::string filled;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i] != " ") filled += std::to_string(i + 1) + "=" + parts[i] + "|";
    }
    return filled;
}

}  // namespace

TEST_F(OrderFile, PositionsOfTheHead) {
    const auto lines = Write({{.id = 17,
                               .type = 4,
                               .customerID = " 1001 ",
                               .customerName = " Bø AS ",
                               .project = " 12 ",
                               .ourRef = "12345678901234567 æøå",
                               .selBuy = 3}},
                             {});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(Filled(lines[0], 68),
              "1=H|4=1|6=0|7=1001|8= Bø AS|23=20051116|35=17 |40=3|43=0 |44=12 |45=0 |46=0 |47=0 |"
              "48=0 |57= 12345678901234567 æø|62= 3|63= 4|68=|");
}

TEST_F(OrderFile, PositionsOfTheLine) {
    const auto lines = Write({{}}, {{.productID = " P1 ",
                                     .description = "Æsj",
                                     .qty = -2.0,
                                     .price = 125.0,
                                     .discount = 12.345,
                                     .costPrice = -0.001}});
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(Filled(lines[1], 66),
              "1=L|3=P1|4=Æsj|5= -2.00|6=100.00|7= 0.00 |13=12.35|17=|18=0|19=0|66=|");
    (void)Filled(Write({{}}, {{.description = "a;b"}}).back(), 67);  // shifts what follows
}

TEST_F(OrderFile, EveryHeadIsFollowedByAllLines) {
    const auto lines = Write({{.id = 1, .type = 1},
                              {.id = 2, .type = 3},
                              {.id = 3, .type = 2},
                              {.id = 4, .type = 0},
                              {.id = 5, .type = platform::Value()},
                              {.id = 6, .type = 4}},
                             {{.saleId = 2, .productID = "A"}, {.saleId = 9, .productID = "B"}});
    std::string shape;
    for (const std::string& line : lines) {
        const auto parts = Split(line, ';');
        shape += parts[0] == "H" ? "H" + parts[34] + parts[3] + parts[39] + " " : parts[2];
    }
    EXPECT_EQ(shape, "H1 41 ABH3 11 ABH6 13 AB");
    EXPECT_EQ(counter, 3);
    EXPECT_TRUE(shop.runState.SalesRecordset->IsEof());
}

TEST_F(OrderFile, NetPrices) {
    const auto net = [&](const platform::Value& price, const platform::Value& vatCode) {
        return Split(Write({{}}, {{.price = price, .vatCode = vatCode}}).back(), ';')[5];
    };
    EXPECT_EQ(net(115.0, 31), "100.00");
    EXPECT_EQ(net(115.0, 99), "115.00") << "an unknown code has rate 0";
    EXPECT_EQ(net(115.0, platform::Value()), "115.00");
    EXPECT_EQ(net(platform::Value(), 3), "0");
    EXPECT_EQ(net(-1.25625, 3), "-1.01");
    shop.InStore("INSERT INTO Tax (VatCode, Rate) VALUES (5, -100), (6, NULL)");
    support::ExpectError(11, [&] { (void)net(10.0, 5); });
    support::ExpectError(94, [&] { (void)net(10.0, 6); });
    shop.databases.TaxTable.Release();
    support::ExpectError(91, [&] { (void)net(10.0, 3); });
}

TEST(OrderRecord, AmountText) {
    const std::pair<platform::Value, const char*> cases[] = {
        {"1234,50", "1234.50"}, {platform::Value(), "0"}, {"", "0"},
        {"12.50", "12.50"},     {"1,2,3", "0"},           {-2.5, "-2.50"},
        {" 7 ", "7.00"},        {-0.001, "0.00"},         {std::numeric_limits<double>::max(), "0"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(fileexport::AmountText(platform::ToTwoDecimals(value)), text);
}
