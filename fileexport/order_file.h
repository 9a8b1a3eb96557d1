// The body of the order file: a head for each sale that is an order to the accounting package, and
// beneath it the lines.
#pragma once

#include <string>

#include "fileexport/record_writer.h"
#include "platform/text_file.h"
#include "store/databases.h"
#include "ui/run_state.h"

namespace fileexport {

// Writes an "H" line for each sale of type 1, 2 or 4, followed by an "L" line for every line of the
// whole data set, in file order, not only for its own, which is kept on purpose. Leaves
// SalesRecordset at its end.
void WriteOrderFileBody(platform::TextFile& orderFile, RecordCounter& recordCounter,
                        const std::string& dataSetName, ui::RunState& runState,
                        const store::Databases& databases);

// The VAT rate of a code in per cent; 0 for a code that the Tax table does not hold.
[[nodiscard]] double VatRate(platform::TableRecordset& taxTable, const platform::Value& vatCode);

}  // namespace fileexport
