// The changed customers, products and price-matrix rows at the head of the voucher file.
#pragma once

#include "platform/text_file.h"
#include "store/databases.h"

namespace fileexport {

// Writes a section for each kind that has changed rows and sets their Status to 0. A row that is
// written is marked, also when the export is discarded later: it is not offered again.
void WriteMasterData(platform::TextFile& voucherFile, const store::Databases& databases);

}  // namespace fileexport
