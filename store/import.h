// Copies a data set into the work database, so that it can be summed with SQL.
#pragma once

#include "platform/database/database.h"
#include "store/waiting_files.h"

namespace store {

// Replaces the work tables Sales and SalesLines by the two files of the data set, column by column.
// A missing or malformed file is an error before its table is touched. A row that the table refuses
// (a missing column, a text in a number column) is an error that leaves the rows before it.
void ImportDataSet(const WaitingFiles& files, platform::database::Database& workConnection);

}  // namespace store
