#include "app/field_values.h"

#include <gtest/gtest.h>

#include "tests/support/platform/expect_error.h"

using platform::Value;

TEST(FieldValues, NzTextIsNeverEmpty) {
    const std::pair<Value, const char*> cases[] = {
        {Value(), " "}, {"", " "}, {"   ", " "}, {"  ab ", "ab "}, {12, "12"}, {2.5, "2,5"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(app::NzText(value), text);
}

TEST(FieldValues, NzNumberKeepsWhatIsNumeric) {
    const std::pair<Value, Value> cases[] = {
        {Value(), 0}, {"", 0}, {"abc", 0}, {5, 5}, {"7", "7"}, {" 1,5 ", " 1,5 "},
    };
    for (const auto& [value, number] : cases)
        EXPECT_EQ(app::NzNumber(value), number);
}

TEST(FieldValues, Dates) {
    EXPECT_EQ(app::DateToYmd({2006, 1, 1, 23, 0, 0}), "20060101");
    EXPECT_EQ(app::YmdToDateText(20050305), "05.03.2005");
    EXPECT_EQ(app::YmdToDateText(10000000), "");
    EXPECT_EQ(app::YmdToDateText(-20050305), "");
    support::ExpectError(13, [] { (void)app::YmdToDateText(20051340); });
}
