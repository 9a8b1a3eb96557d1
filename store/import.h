// Copies a data set into the work database, so that it can be summed with SQL.
#pragma once

#include <string>

#include "platform/database/database.h"

namespace store {

// Replaces the work tables Sales and SalesLines by the two files of the data set, column by column
// in the order of the table, whatever the columns are called in the file.
//
// A missing or malformed file is an error before its table is touched. A row that the table refuses
// (a missing column, a text in a number column) is an error that leaves the rows before it; the
// description names file, record and column.
void ImportDataSet(const std::string& currentDataSetName, platform::Database& workConnection);

}  // namespace store
