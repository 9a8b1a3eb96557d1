// The types of a persisted recordset's columns, and their values from the texts in the file.
// Knows nothing of XML.
#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace platform::recordset_file {

enum class FieldType {
    Text,
    Boolean,
    Int8,
    UInt8,
    Int16,
    UInt16,
    Int32,
    UInt32,
    Int64,
    UInt64,
    Single,
    Double,
    Currency,
    DateTime,
    Date,
    Time
};

// The amounts that a currency column holds: 64 bits of ten-thousandths.
inline constexpr double kCurrencyBound = 922337203685477.5808;

// The type that dt:type and rs:dbtype name, without regard to case. What is not known is text, as
// the original reader takes it.
[[nodiscard]] FieldType FieldTypeOf(std::string_view type, std::string_view dbType);

// Makes `value` what `text` spells. A text that the type does not allow is error 321, whose
// description gives the text and the reason, not the place.
void ReadValue(FieldType type, std::string_view text, Value& value);

// The text in quotation marks for a description, cut where it is long.
[[nodiscard]] std::string Quoted(std::string_view text);

}  // namespace platform::recordset_file
