#include "platform/database/filter.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/support/platform/expect_error.h"

namespace platform::database {
namespace {

namespace number = error_number;

TEST(Filter, ReadsTermsJoinedByAnd) {
    const auto terms = ParseFilter(
        "TransType >= 1 and TransType<=2 AND ProductID <> 'Avrunding' and SalesID = 17");
    ASSERT_EQ(terms.size(), 4U);
    EXPECT_EQ(terms[0].field, "TransType");
    EXPECT_EQ(terms[0].comparison, Comparison::GreaterOrEqual);
    EXPECT_EQ(terms[0].literal, Value(1));
    EXPECT_EQ(terms[1].comparison, Comparison::LessOrEqual);
    EXPECT_EQ(terms[2].comparison, Comparison::NotEqual);
    EXPECT_EQ(terms[2].literal, Value("Avrunding"));
    EXPECT_EQ(terms[3].comparison, Comparison::Equal);
    EXPECT_EQ(terms[3].literal, Value(17));
}

TEST(Filter, ReadsLiterals) {
    struct Case {
        const char* filter;
        Value literal;
    };
    const Case cases[] = {
        {"A = 'O''Neill and sønner'", "O'Neill and sønner"},
        {"A = ''", ""},
        {"A = ''''", "'"},
        {"A = ' x '", " x "},
        {"A = -2", -2},
        {"A = 1.25", 1.25},
        {"A > 99999999", 99999999},
        {"A = 12345678901234567", 12345678901234567},
    };
    for (const Case& test : cases) {
        const auto terms = ParseFilter(test.filter);
        ASSERT_EQ(terms.size(), 1U) << test.filter;
        EXPECT_EQ(terms[0].literal, test.literal) << test.filter;
    }
    EXPECT_TRUE(ParseFilter("").empty());
}

TEST(Filter, RefusesWhatIsNoComparison) {
    for (const char* filter :
         {"SalesID = ", "SalesID", "= 1", "SalesID = 1 and", "A = 1 or B = 2", "A = 'x", "A == 1",
          "A = B", "A = 1 B = 2", "A >< 1", "A = '1'2", "and"}) {
        const std::string description =
            support::ExpectError(number::kSyntaxError, [&] { (void)ParseFilter(filter); });
        EXPECT_NE(description.find(filter), std::string::npos) << description;
    }
}

TEST(Filter, ComparesLikeTheRestOfTheSystem) {
    struct Case {
        const char* filter;
        Value value;
        bool passes;
    };
    const Case cases[] = {
        {"A = 'ærfugl'", "ÆRFUGL", true},
        {"A <> 'Avrunding'", "AVRUNDING", false},
        {"A <> 'Avrunding'", "1001", true},
        {"A <> 'Avrunding'", Value(), false},
        {"A = 2", 2.0, true},
        {"A = 2", "2", true},
        {"A <> 2", "to", false},
        {"A = -1", true, true},
        {"A < 3", 2.5, true},
        {"A >= 3", 2.5, false},
        {"A <= 3", 3, true},
        {"A > 3", 3, false},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(Passes(ParseFilter(test.filter).at(0), test.value), test.passes) << test.filter;
    }
}

}  // namespace
}  // namespace platform::database
