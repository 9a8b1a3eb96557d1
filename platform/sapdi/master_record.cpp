#include "platform/sapdi/master_record.h"

#include <utility>

#include "platform/sapdi/code_rules.h"

namespace platform::sapdi {

MasterRecord::MasterRecord(std::span<const std::string_view> columns)
    : columns_(columns), values_(columns.size()), wasSet_(columns.size()) {}

void MasterRecord::Set(std::size_t column, std::string_view text) {
    values_[column].AssignText(text);
    wasSet_[column] = true;
}

std::string MasterRecord::Code() const {
    return std::string(TextOf(values_.front()));
}

void MasterRecord::Replace(std::vector<Value> values) {
    values_ = std::move(values);
    MarkSaved();
}

void MasterRecord::MarkSaved() {
    wasSet_.assign(wasSet_.size(), false);
}

}  // namespace platform::sapdi
