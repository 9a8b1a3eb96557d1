#include "platform/recordset_file/typed_value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/platform/expect_error.h"

namespace {

using platform::DateTime;
using platform::Value;
using platform::recordset_file::FieldTypeOf;
using platform::recordset_file::ReadValue;

struct ValueCase {
    const char* type;
    const char* dbType;
    const char* text;
    Value expected;
};

TEST(TypedValueTest, ValuesOfEveryType) {
    const std::int64_t least = std::numeric_limits<std::int64_t>::min();
    const std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
    const ValueCase cases[] = {
        {"", "", " kept ", " kept "},
        {"bin.hex", "", "0A0b", "0A0b"},
        {"dateTime.tz", "", "12", "12"},
        {"boolean", "", "TRUE", true},
        {"boolean", "", "-1", true},
        {"bool", "", "False", false},
        {"i1", "", "-128", -128},
        {"ui1", "", "255", 255},
        {"i2", "", " +32767 ", 32767},
        {"ui2", "", "65535", 65535},
        {"int", "", "-2147483648", std::int64_t{-2147483648}},
        {"I4", "", "007", 7},
        {"ui4", "", "4294967295", std::int64_t{4294967295}},
        {"i8", "", "-9223372036854775808", least},
        {"ui8", "", "9223372036854775807", greatest},
        {"ui8", "", "18446744073709551615", 18446744073709551615.0},
        {"r4", "", "3.4028235E+38", 3.4028235E+38},
        {"float", "", " +.5 ", 0.5},
        {"r8", "", "-1e-3", -0.001},
        {"number", "", "12", 12.0},
        {"r8", "", "9007199254740993", Value::FloatingOf(9007199254740993)},
        {"number", "numeric", "12345678901234567.00", Value::FloatingOf(12345678901234567)},
        {"decimal", "", "12345678901234567.5", 12345678901234568.0},
        {"float", "", "12345678901234567890", 12345678901234567890.0},
        {"number", "numeric", "-.6583", -0.6583},
        {"number", "Currency", "-922337203685477.5808", -922337203685477.5808},
        {"dateTime", "variantdate", "2006-11-16T12:30:05", DateTime{2006, 11, 16, 12, 30, 5}},
        {"dateTime", "", "2004-02-29T00:00:00.123000000Z", DateTime{2004, 2, 29}},
        {"dateTime", "", "2006-11-16", DateTime{2006, 11, 16}},
        {"dateTime", "", "23:59:58", DateTime{1899, 12, 30, 23, 59, 58}},
        {"date", "", "9999-12-31", DateTime{9999, 12, 31}},
        {"dateTime", "time", "01:02:03", DateTime{1899, 12, 30, 1, 2, 3}},
    };
    for (const ValueCase& c : cases) {
        Value value;
        ReadValue(FieldTypeOf(c.type, c.dbType), c.text, value);
        EXPECT_EQ(value, c.expected) << c.type << " " << c.text;
    }
}

TEST(TypedValueTest, TextsThatTheirTypeDoesNotAllow) {
    const struct {
        const char* type;
        std::vector<std::string> texts;
    } cases[] = {
        {"boolean", {"", " true ", "2", "yes"}},
        {"i1", {"128", "-129"}},
        {"ui1", {"-1", "256"}},
        {"i2", {"32768", "", " ", "1.0", "12,x", "0x1F", "+-1", "1 2"}},
        {"ui2", {"65536"}},
        {"int", {"2147483648"}},
        {"ui4", {"4294967296", "-1"}},
        {"i8", {"9223372036854775808"}},
        {"ui8", {"18446744073709551616", "-1", "-x", ""}},
        {"r4", {"3.5e38"}},
        {"float", {"", "1,5", "nan", "-inf", "1e400", ".", "+", "+-1", "1d5"}},
        {"currency", {"922337203685478"}},
        {"dateTime",
         {"", "2006-02-29T00:00:00", "2006-11-16 12:00:00", "2006-11-16T24:00:00",
          "2006-11-16T12:00", "2006-11-16T12:00:00.", "2006-11-16T12:00:00.1234567890",
          "2006-11-16T12:00:00+01:00", "0099-01-01", "16.11.2006"}},
        {"date", {"2006-11-16T00:00:00", "2006-13-01"}},
        {"time", {"2006-11-16", "12:60:00"}},
    };
    for (const auto& c : cases) {
        for (const std::string& text : c.texts) {
            Value value;
            const std::string description =
                support::ExpectError(321, [&] { ReadValue(FieldTypeOf(c.type, ""), text, value); });
            EXPECT_TRUE(description.starts_with('"' + text + "\" is ")) << c.type << description;
        }
    }
}

TEST(TypedValueTest, LongTextsAreCutInDescriptions) {
    EXPECT_EQ(platform::recordset_file::Quoted("12,x"), "\"12,x\"");
    EXPECT_EQ(platform::recordset_file::Quoted(std::string(100, 'a')),
              '"' + std::string(60, 'a') + "...\"");
}

}  // namespace
