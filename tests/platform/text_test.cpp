#include "platform/text.h"

#include <gtest/gtest.h>

#include "platform/code_page.h"
#include "platform/error.h"
#include "tests/support/platform/expect_error.h"

using namespace platform;

TEST(Text, CountsAndCutsCharacters) {
    EXPECT_EQ(Length("Blåbærsyltetøy"), 14U);
    EXPECT_EQ(Left("Blåbær", 3), "Blå");
    EXPECT_EQ(Left("Blåbær", 60), "Blåbær");
    EXPECT_EQ(Mid("Blåbær", 3, 2), "åb");
    EXPECT_EQ(Mid("Blå", 4, 5), "");
    EXPECT_EQ(PadRight("æøå", 5), "æøå  ");
    EXPECT_EQ(PadRight("prosjekt nr 17", 8), "prosjekt nr 17");
    support::ExpectError(error_number::kInvalidArgument, [] { (void)Mid("NOW()", 6, -1); });
}

TEST(Text, BlanksAreSpacesOnly) {
    EXPECT_EQ(Trim("  a b \t "), "a b \t");
    EXPECT_EQ(TrimLeft("   "), "");
    EXPECT_EQ(TrimRight(" x  "), " x");
}

TEST(Text, CaseOfLatinLetters) {
    EXPECT_EQ(Upper("Kjøp på Ærfugl-çéü ÿ đŋő ß ÷ 1"), "KJØP PÅ ÆRFUGL-ÇÉÜ Ÿ ĐŊŐ ß ÷ 1");
    EXPECT_TRUE(EqualsIgnoreCase("avrunding", "AVRUNDING"));
    EXPECT_TRUE(EqualsIgnoreCase("BLÅBÆR", "blåbær"));
    EXPECT_FALSE(EqualsIgnoreCase("blåbær", "blabær"));
    EXPECT_EQ(FindIgnoreCase("ØstDAYENDsales.xml", "DayEndSales.xml"), 4U);
    EXPECT_EQ(FindIgnoreCase("ØstDayEndSalesLines.xml", "DayEndSales.xml"), 0U);
}

TEST(Text, BrokenUtf8StaysAsItIs) {
    const std::string broken = "a\xC3(\xE2\x82 \xFF";
    EXPECT_EQ(Upper(broken), "A\xC3(\xE2\x82 \xFF");
    EXPECT_EQ(EncodeWindows1252("a\xC3("), "a?(");
    const std::string stray =
        "\xA7"
        "AbcDayEndSales.xml";
    EXPECT_EQ(Left(stray, FindIgnoreCase(stray, "DayEndSales.xml") - 1),
              "\xA7"
              "Abc");
}

TEST(CodePage, Windows1252) {
    EXPECT_EQ(EncodeWindows1252("Overføring €10 – Ł"),
              "Overf\xF8ring \x80"
              "10 \x96 ?");
    EXPECT_EQ(DecodeWindows1252("\xC6\xD8\xC5 \x80\x9F"), "ÆØÅ €Ÿ");
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(EncodeWindows1252(DecodeWindows1252(all)), all);
}
