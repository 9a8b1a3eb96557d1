// A demo shop on disk: makes the folder with everything in it, or makes it anew.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "demo/options.h"

namespace demo {

// The folder holds something that is no demo shop; nothing was changed.
class FolderInUse : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The number of the first sale of a data set (from 1). The SAP transfer takes 16 bits: its numbers
// stay below as long as they can, if need be by starting anew in each data set.
[[nodiscard]] std::int64_t FirstSaleId(const ShopOptions& options, int dataSet);

// Creates `options.folder`, or replaces the demo shop in it together with the files that a run has
// left there. An existing folder must be empty or a demo shop; else FolderInUse. Any other failure
// is a platform::RuntimeError.
void MakeDemoShop(const ShopOptions& options);

}  // namespace demo
