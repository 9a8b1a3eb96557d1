// Findings and rules as JSON documents, for scripts.
#pragma once

#include <span>
#include <string>

#include "control/finding.h"
#include "control/rules.h"

namespace control {

[[nodiscard]] std::string FindingsJson(std::span<const Finding> findings);
[[nodiscard]] std::string RuleJson(const Rule& rule);

}  // namespace control
