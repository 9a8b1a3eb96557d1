// Writes a persisted recordset, for the demo shop and for tests; streams row by row.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset_file/recordset_column.h"
#include "platform/value.h"

namespace platform::recordset_file {

class RecordsetFileWriter {
  public:
    // Creates or replaces the file and writes the schema. Errors 61, 75, 76 with the path.
    RecordsetFileWriter(std::string_view fileName, std::vector<RecordsetColumn> columns);
    ~RecordsetFileWriter();  // an unfinished file stays without its end
    RecordsetFileWriter(const RecordsetFileWriter&) = delete;
    RecordsetFileWriter& operator=(const RecordsetFileWriter&) = delete;

    // One value a column. A value that does not fit its column's type, or a text with a control
    // character that XML can not hold, is error 13 with record and column.
    void Write(const std::vector<Value>& row);

    void Finish();  // ends and closes the file

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform::recordset_file
