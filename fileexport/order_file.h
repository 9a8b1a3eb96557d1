// The body of the order file: a head for each sale that is an order, and beneath it the lines.
#pragma once

#include "fileexport/record_writer.h"
#include "platform/database/client_recordset.h"
#include "platform/recordset_file/forward_recordset.h"
#include "platform/text_file.h"
#include "store/databases.h"
#include "store/options.h"

namespace fileexport {

struct OrderSources {
    platform::database::ClientRecordset& sales;         // the loaded sales
    platform::recordset_file::ForwardRecordset& lines;  // of the data set, on the first
    store::Options options;
    const store::Databases& databases;  // for the VAT rates
};

// Leaves the sales at their end.
void WriteOrderFileBody(platform::TextFile& orderFile, RecordCounter& recordCounter,
                        const OrderSources& sources);

// The VAT rate of a code in per cent; 0 for a code that the Tax table does not hold.
[[nodiscard]] double VatRate(platform::database::TableRecordset& taxTable,
                             const platform::Value& vatCode);

}  // namespace fileexport
