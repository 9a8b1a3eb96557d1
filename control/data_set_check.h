// One data set, held against all rules: each of its files is read once.
#pragma once

#include "control/findings.h"
#include "control/shop.h"
#include "store/data_set.h"

namespace control {

void CheckDataSet(const store::DataSet& dataSet, const Shop& shop, Findings& findings);

}  // namespace control
