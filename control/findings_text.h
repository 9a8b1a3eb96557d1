// Findings as lines for a person.
#pragma once

#include <string>

#include "control/check.h"

namespace control {

[[nodiscard]] std::string FindingsText(const CheckResult& result);

}  // namespace control
