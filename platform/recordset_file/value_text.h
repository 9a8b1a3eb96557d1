// Values as the texts of a persisted recordset's attributes. Knows nothing of files.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/recordset_file/recordset_column.h"
#include "platform/value.h"

namespace platform::recordset_file {

// Why a value can not be written; nothing where it was.
using Refusal = std::optional<std::string_view>;

// Appends the value, which is not null, as its column spells it. After a refusal a part of it may
// have been appended.
[[nodiscard]] Refusal AppendValue(const Value& value, const RecordsetColumn& column,
                                  std::string& out);

// Appends a text with references for what an attribute can not hold as it is.
[[nodiscard]] Refusal AppendAttributeText(std::string_view text, std::string& out);

}  // namespace platform::recordset_file
