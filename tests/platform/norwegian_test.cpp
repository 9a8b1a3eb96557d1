#include "platform/norwegian.h"
#include "platform/date_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "platform/error.h"
#include "tests/support/platform/expect_error.h"

using namespace platform;
using support::ExpectError;

TEST(Norwegian, TextOfValues) {
    const DateTime midnight{2005, 3, 5, 0, 0, 0};
    const DateTime afternoon{2005, 11, 30, 15, 4, 7};
    const std::pair<Value, const char*> cases[] = {
        {Value(), ""},
        {true, "True"},
        {false, "False"},
        {-1234567890123, "-1234567890123"},
        {1234.5, "1234,5"},
        {-0.5, "-0,5"},
        {-0.0, "0"},
        {0.1 + 0.2, "0,3"},
        {100.0, "100"},
        {1.0 / 3, "0,333333333333333"},
        {0.0001, "0,0001"},
        {0.00001, "1E-05"},
        {123456789012345.0, "123456789012345"},
        {999999999999999.9, "1E+15"},
        {1.5e15, "1,5E+15"},
        {-2.5e-120, "-2,5E-120"},
        {" Blåbær ", " Blåbær "},
        {midnight, "05.03.2005"},
        {afternoon, "30.11.2005 15:04:07"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(ToText(value), text);
}

TEST(Norwegian, NumberOfText) {
    const std::pair<const char*, double> numbers[] = {
        {"7", 7},      {" -12,5 ", -12.5}, {"+3.25", 3.25}, {",5", 0.5},     {"5,", 5},
        {"1E3", 1000}, {"1,5e-2", .015},   {"007", 7},      {"1e-999", 0.0},
    };
    for (const auto& [text, number] : numbers)
        EXPECT_EQ(ParseNumber(text), number) << text;
    for (const char* text : {"", " ", "abc", "1 000", "1.000,5", "1,2,3", ".", "-", "1E", "0x10",
                             "12kr", "1e999", "inf", "nan"}) {
        EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
    }
    const std::string zeros(400, '0');
    EXPECT_EQ(ParseNumber("1" + zeros + "e-9"), std::nullopt) << "too large all the same";
    EXPECT_EQ(ParseNumber("0," + zeros + "1"), 0.0);
}

TEST(Norwegian, WholeNumbersOfTextToTheLastDigit) {
    const std::pair<const char*, std::int64_t> numbers[] = {
        {"12345678901234567", 12345678901234567},
        {" +9007199254740993 ", 9007199254740993},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"0000000000000000000009223372036854775807", std::numeric_limits<std::int64_t>::max()},
        {"12345678901234567,000", 12345678901234567},
        {"1.2345678901234567E+16", 12345678901234567},
        {"1234567890123456700e-2", 12345678901234567},
        {"0,000E9", 0},
        {"00,00501e5", 501},
    };
    for (const auto& [text, number] : numbers)
        EXPECT_EQ(ParseWholeNumber(text), number) << text;
    for (const char* text : {"", "x", "501,5", "0.30000000000000004", "12345678901234567,1",
                             "9223372036854775808", "1e19", "1e-1", "1e999999999999"}) {
        EXPECT_EQ(ParseWholeNumber(text), std::nullopt) << text;
    }
}

TEST(Norwegian, IntegersRoundHalvesToEvenAndKnowTheirRange) {
    const std::pair<Value, int> cases[] = {
        {0.5, 0},           {1.5, 2},   {2.5, 2},           {-1.5, -2},
        {"32767,4", 32767}, {true, -1}, {"-32768", -32768},
    };
    for (const auto& [value, number] : cases) {
        EXPECT_EQ(ToInt16(value), number);
        EXPECT_EQ(ToInt32(value), number);
    }
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    ExpectError(error_number::kOverflow, [] { (void)ToInt16(32768); });
    ExpectError(error_number::kOverflow, [] { (void)ToInt32("2147483647,5"); });
    ExpectError(error_number::kOverflow, [] { (void)ToInt32(std::nan("")); });
    ExpectError(error_number::kTypeMismatch, [] { (void)ToInt32(""); });
    ExpectError(error_number::kInvalidUseOfNull, [] { (void)ToInt32(Value()); });
}

TEST(TwoDecimals, RoundsHalvesAwayFromZero) {
    const std::pair<Value, const char*> cases[] = {
        {1.005, "1,01"}, {2.675, "2,68"},           {-1.005, "-1,01"},
        {0.0, "0,00"},   {-0.004, "0,00"},          {-0.005, "-0,01"},
        {0.045, "0,05"}, {9.995, "10,00"},          {99.999, "100,00"},
        {0.001, "0,00"}, {1234567.0, "1234567,00"}, {1e20, "100000000000000000000,00"},
        {3, "3,00"},     {"12,345", "12,35"},       {true, "-1,00"},
        {1e-30, "0,00"}, {0.3 - 0.1, "0,20"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(ToTwoDecimals(value)->CommaText(), text);
    EXPECT_EQ(ToTwoDecimals(-15.005)->PointText(), "-15.01");
    EXPECT_EQ(RoundToTwoDecimals(-15.005), -15.01);
}

TEST(TwoDecimals, WhatIsNoAmount) {
    constexpr double kLargest = std::numeric_limits<double>::max();
    for (const Value& value :
         {Value(), Value("abc"), Value(""), Value(kLargest), Value("1.7976931348623157e308")}) {
        EXPECT_FALSE(ToTwoDecimals(value)) << ToText(value);
        ExpectError(error_number::kTypeMismatch, [&] { (void)RoundToTwoDecimals(value); });
    }
    for (const double number : {std::numeric_limits<double>::infinity(), std::nan("")})
        ExpectError(error_number::kOverflow, [&] { (void)ToTwoDecimals(number); });
}

TEST(Norwegian, DatesOfText) {
    EXPECT_EQ(ToDate("05/03/2005"), (DateTime{2005, 3, 5, 0, 0, 0}));
    EXPECT_EQ(ToDate("29.02.2004"), (DateTime{2004, 2, 29, 0, 0, 0}));
    for (const char* text :
         {"40/13/2005", "29.02.2005", "5.3.2005", "05/03.2005", "", "2005-03-05"}) {
        ExpectError(error_number::kTypeMismatch, [&] { (void)ToDate(text); });
    }
    EXPECT_EQ(ToDouble(DateTime{1899, 12, 31, 12, 0, 0}), 1.5);
    EXPECT_EQ(ToDouble(DateTime{2005, 3, 5, 0, 0, 0}), 38416);
}
