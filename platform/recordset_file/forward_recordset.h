// A persisted recordset that is walked once from its first row to its last, in constant memory.
#pragma once

#include <string>
#include <vector>

#include "platform/database/recordset.h"
#include "platform/recordset_file/reader.h"

namespace platform::recordset_file {

// Stands on the first row.
class ForwardRecordset : public database::Recordset {
  public:
    explicit ForwardRecordset(std::string_view fileName);

    [[nodiscard]] bool IsEof() const override;
    void MoveNext() override;
    [[nodiscard]] Value Get(std::string_view field) const override;
    void Close() override;

    // "FILE, record N", of the current row.
    [[nodiscard]] std::string Place() const;

  private:
    void RequireOpen() const;
    void RequireRow() const;

    std::string fileName_;
    RecordsetFileReader reader_;
    std::vector<Value> row_;
    bool isEof_ = false;
    bool isOpen_ = true;
};

}  // namespace platform::recordset_file
