// Reads a persisted recordset (the ADO XML persistence format) row by row, in constant memory.
// Public sources of the format: the ADO guide's "XML Persistence Format" and [MS-PRSTFR].
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/value.h"

namespace platform::recordset_file {

// Opening reads up to the end of the schema, so that the fields are known. A missing file is error
// 53; everything that is wrong with the file's content is error 321, whose description names the
// file, the line, the reason and, for a value, the record (from 1) and the column.
class RecordsetFileReader {
  public:
    explicit RecordsetFileReader(std::string_view fileName);
    ~RecordsetFileReader();
    RecordsetFileReader(const RecordsetFileReader&) = delete;
    RecordsetFileReader& operator=(const RecordsetFileReader&) = delete;

    // The names of the fields in their order (rs:number); hidden columns are no fields.
    [[nodiscard]] const std::vector<std::string>& Fields() const;

    // Puts the next current row into `row` (one value a field) and answers true; false after the
    // last one, when the whole file has been found well formed. Pending inserts and updates are
    // resolved, deleted rows left out, in document order.
    [[nodiscard]] bool Next(std::vector<Value>& row);

    // The number of the row that Next gave last, from 1.
    [[nodiscard]] long RecordNumber() const;

    // How much of the file has been read, in bytes; up to some way behind the row that Next gave.
    [[nodiscard]] long BytesRead() const;

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform::recordset_file
