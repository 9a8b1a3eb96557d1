#include "platform/value.h"
#include "platform/comparison.h"
#include "platform/norwegian.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(Value, Compares) {
    const DateTime early{2005, 3, 5, 8, 0, 0};
    const DateTime late{2005, 3, 5, 8, 0, 1};
    struct Case {
        Value left;
        Value right;
        Ordering ordering;
    };
    const Case cases[] = {
        {1, 1.0, Ordering::Equal},
        {"10", 9, Ordering::Greater},
        {"2,5", 2.5, Ordering::Equal},
        {true, -1, Ordering::Equal},
        {true, 1, Ordering::Less},
        {false, 0, Ordering::Equal},
        {true, true, Ordering::Equal},
        {"AVRUNDING", "Avrunding", Ordering::Equal},
        {"ø", "Æ", Ordering::Greater},
        {early, late, Ordering::Less},
        {"abc", 0, Ordering::Unordered},
        {Value(), Value(), Ordering::Unordered},
        {Value(), 0, Ordering::Unordered},
        {9007199254740993, 9007199254740992, Ordering::Greater},
        {"9007199254740993", 9007199254740992, Ordering::Greater},
        {Value::FloatingOf(9007199254740993), 9007199254740992.0, Ordering::Greater},
        {"12345678901234567", Value::FloatingOf(12345678901234567), Ordering::Equal},
        {9223372036854775807, 9223372036854775808.0, Ordering::Equal},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(Compare(each.left, each.right), each.ordering) << &each - cases;
    }
}

TEST(Value, FloatingPointKeepsTheWholeNumberThatWasMeant) {
    const Value number = Value::FloatingOf(12345678901234567);
    EXPECT_EQ(number.Whole(), 12345678901234567);
    EXPECT_EQ(*number.AsFloating(), 12345678901234568.0);
    EXPECT_EQ(ToText(number), "1,23456789012346E+16") << "floating point shows 15 digits";
    EXPECT_EQ(Value::FloatingOf(501), Value(501.0));
    EXPECT_EQ(Value(1e18).Whole(), 1000000000000000000);
    for (const Value& none : {Value(), Value(0.5), Value(1e19), Value("501"), Value(DateTime{})})
        EXPECT_EQ(none.Whole(), std::nullopt);
}

TEST(Value, KnowsTheCalendar) {
    EXPECT_TRUE(IsValid({2000, 2, 29, 23, 59, 59}));
    EXPECT_FALSE(IsValid({1900, 2, 29, 0, 0, 0}));
    EXPECT_FALSE(IsValid({2005, 11, 31, 0, 0, 0}));
    EXPECT_FALSE(IsValid({2005, 1, 1, 24, 0, 0}));
}
