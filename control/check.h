// The check of a shop: its settings, and the data sets that are named or wait. It asks nothing and
// changes nothing in the shop; a server may run there meanwhile.
#pragma once

#include <string>
#include <vector>

#include "control/finding.h"
#include "control/shop.h"
#include "store/data_set.h"

namespace control {

struct CheckResult {
    std::vector<Finding> findings;
    std::vector<std::string> unknown;  // names of no data set
    std::vector<std::string> checked;  // display names
    bool hasErrors = false;
};

// In the current directory. Names are display names, the exact spelling before another one; without
// names all that wait.
[[nodiscard]] CheckResult CheckShop(const Surroundings& surroundings,
                                    const std::vector<std::string>& names);

}  // namespace control
