// A persisted recordset that is walked once from its first row to its last, in constant memory.
#pragma once

#include <string>
#include <vector>

#include "platform/database/recordset.h"
#include "platform/recordset_file/reader.h"

namespace platform {

// Stands on the first row. It can not go back (MoveFirst after the first row), be changed or be
// filtered: error 3027. Its number of rows is not known (-1).
class ForwardRecordset : public Recordset {
  public:
    explicit ForwardRecordset(std::string_view fileName);

    [[nodiscard]] bool IsEof() const override;
    [[nodiscard]] long AbsolutePosition() const override;
    [[nodiscard]] long RecordCount() const override;
    void MoveFirst() override;
    void MoveNext() override;
    [[nodiscard]] int FieldCount() const override;
    [[nodiscard]] Value Get(std::string_view field) const override;
    [[nodiscard]] Value Get(int position) const override;
    void Edit() override;
    void Set(std::string_view field, Value value) override;
    void Update() override;
    void SetFilter(std::string_view filter) override;
    void Close() override;

  private:
    void RequireOpen() const;
    void RequireRow() const;

    std::string fileName_;
    RecordsetFileReader reader_;
    std::vector<Value> row_;
    bool isEof_ = false;
    bool isOpen_ = true;
};

}  // namespace platform
