// A rule of the check: its code, how bad a breach is, and what an operator is told of it.
#pragma once

#include <string_view>

#include "control/finding.h"

namespace control {

// The texts are Norwegian. In `what`, "{value}", "{field}" and "{sale}" stand for those of the
// finding.
struct Rule {
    std::string_view code;
    Severity severity;
    std::string_view title;
    std::string_view what;    // is wrong
    std::string_view remedy;  // what to do
    std::string_view why;     // it matters
    std::string_view how;     // it comes about
    std::string_view mend;    // how it is put right, step by step
};

}  // namespace control
