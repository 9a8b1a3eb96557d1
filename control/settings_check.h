// The settings of the shop, held against its rules. Knows no data set.
#pragma once

#include <cstddef>

#include "control/findings.h"
#include "control/shop.h"

namespace control {

// `waiting` is the number of data sets that wait.
void CheckSettings(const Shop& shop, std::size_t waiting, Findings& findings);

}  // namespace control
