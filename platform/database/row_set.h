// Rows held in memory, with the names of their fields. Knows no engine.
#pragma once

#include <string>
#include <vector>

#include "platform/database/recordset.h"

namespace platform::database {

// May be shared by several recordsets that view other rows of it.
struct RowSet {
    std::vector<std::string> fields;
    std::vector<Row> rows;
    std::string source = {};  // for errors: the file, the table or the query
};

}  // namespace platform::database
