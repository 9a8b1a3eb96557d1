// The changed customers, products and price-matrix rows at the head of the voucher file.
#pragma once

#include "platform/database/database.h"
#include "platform/text_file.h"
#include "store/options.h"

namespace fileexport {

// Writes a section for each kind that has changed rows, and sets their Status to 0 once all of the
// kind are on disk. After an error before that they keep their Status.
void WriteMasterData(platform::TextFile& voucherFile, platform::database::Database& storeDatabase,
                     const store::Options& options);

}  // namespace fileexport
