// The table of rules: every code of the check, each with all of its texts.

#include "control/rules.h"

#include <gtest/gtest.h>

namespace control {

TEST(Rules, EveryCodeIsExplained) {
    constexpr int kLastOfHundred[] = {8, 6, 9, 10, 6, 5, 4};
    std::string wanted;
    for (int hundred = 0; hundred < 7; ++hundred) {
        for (int i = 1; i <= kLastOfHundred[hundred]; ++i)
            wanted += "K" + std::to_string(hundred) + (i < 10 ? "0" : "") + std::to_string(i) + " ";
    }
    std::string codes;
    for (const Rule& rule : Rules()) {
        codes += std::string(rule.code) + " ";
        for (const std::string_view text :
             {rule.title, rule.what, rule.remedy, rule.why, rule.how, rule.mend}) {
            EXPECT_FALSE(text.empty()) << rule.code;
        }
        // No value stands in what is told of the rule alone.
        EXPECT_EQ(Explanation(rule).find('{'), std::string::npos) << rule.code;
    }
    EXPECT_EQ(codes, wanted);
    EXPECT_EQ(FindRule("k302"), FindRule("K302"));
    EXPECT_EQ(FindRule("K999"), nullptr);
}

}  // namespace control
