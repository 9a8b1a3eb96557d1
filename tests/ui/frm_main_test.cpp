#include "ui/frm_main.h"

#include <gtest/gtest.h>

#include "tests/support/ui/test_shop.h"

using support::TestShop;

namespace {

// The data-set list of a folder that holds these files.
std::string ListOf(const std::vector<std::string>& files, const std::string& pattern,
                   bool expectNotice = false) {
    TestShop shop;
    shop.settings.Pattern = pattern;
    for (const std::string& file : files)
        shop.folder.Write(file, "");
    shop.window.Load();
    EXPECT_EQ(shop.theOperator.shown,
              expectNotice ? std::vector<std::string>{"Ingen filer er klare for overføring."}
                           : std::vector<std::string>{});
    EXPECT_EQ(shop.theOperator.boxes, expectNotice ? "i " : "");
    std::string list;
    for (const ui::ListEntry& entry : shop.window.ListDayEnd)
        list += entry.dataSet.DisplayName() + "|";
    return list;
}

}  // namespace

TEST(FrmMain, ListsEachDataSetOnce) {
    const std::string pattern = "*DayEnd*.xml";
    EXPECT_EQ(ListOf({"AbcDayEndSales.XML", "AbcDayEndSalesLines.XML"}, pattern), "Abc|");
    EXPECT_EQ(ListOf({"AbcDayEndSales.XML"}, pattern), "Abc|");
    EXPECT_EQ(ListOf({"DayEndSales.XML", "DayEndSalesLines.XML"}, pattern), "<Uten navn>|");
    EXPECT_EQ(ListOf({"dayendsaleslines.XML"}, pattern), "<Uten navn>|");
    EXPECT_EQ(ListOf({"DayEndSales.XML"}, pattern), "");
    EXPECT_EQ(ListOf({"øst-dayendsales.xml", "ÅsDAYENDSALES.XML", "bøDayEndSales.xml",
                      "DayEndSalesLines.xml", "BDayEndSalesLines.xml"},
                     pattern),
              "<Uten navn>|bø|Ås|øst-|");
}

TEST(FrmMain, NoFileForThePatternIsTold) {
    EXPECT_EQ(ListOf({}, "*DayEnd*.xml", true), "");
    EXPECT_EQ(ListOf({"DayEndSalesLines.xml", "ADayEndSales.XML"}, "", true), "");
    EXPECT_EQ(ListOf({"ADayEndSales.XML.200511161433.ferdig"}, "*DayEnd*.xml", true), "");
    // Another pattern may well find finished files.
    EXPECT_EQ(ListOf({"ADayEndSales.XML.200511161433.ferdig"}, "*.txt;*.FERDIG"), "A|");
}
