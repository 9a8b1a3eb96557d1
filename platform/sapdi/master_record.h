// A partner's or item's own columns: the code, the other texts, and which of them were set. Knows
// nothing of how a company is reached.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/value.h"

namespace platform::sapdi {

class MasterRecord {
  public:
    // `columns` begins with the code and outlives the record.
    explicit MasterRecord(std::span<const std::string_view> columns);

    void Set(std::size_t column, std::string_view text);
    [[nodiscard]] std::string Code() const;  // empty before it is set

    [[nodiscard]] std::span<const std::string_view> Columns() const { return columns_; }
    [[nodiscard]] const std::vector<Value>& Values() const { return values_; }
    [[nodiscard]] bool WasSet(std::size_t column) const { return wasSet_[column]; }

    // What was loaded takes the place of all values; none of them counts as set.
    void Replace(std::vector<Value> values);

    // The company has what was set.
    void MarkSaved();

  private:
    std::span<const std::string_view> columns_;
    std::vector<Value> values_;
    std::vector<bool> wasSet_;
};

}  // namespace platform::sapdi
