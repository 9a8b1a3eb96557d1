// A column of a persisted recordset that is to be written.
#pragma once

#include <string>

namespace platform::recordset_file {

enum class ColumnType { SmallInt, Integer, Double, Currency, Boolean, Date, Text };

struct RecordsetColumn {
    std::string name;
    ColumnType type = ColumnType::Text;
    int maxLength = 255;  // characters, of a text column
    bool nullable = true;
};

}  // namespace platform::recordset_file
