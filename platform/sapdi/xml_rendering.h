// The XML rendering of an object: its rows under the names of tables and columns. Knows no object
// kind.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sapdi/business_objects.h"
#include "platform/value.h"

namespace platform::sapdi {

struct XmlTable {
    std::string_view name;
    std::span<const std::string_view> columns;
    std::span<const std::vector<Value>> rows;
};

// UTF-8, escaped, an element a line; what is null is left out.
[[nodiscard]] std::string ObjectXml(ObjectType type, std::span<const XmlTable> tables);

}  // namespace platform::sapdi
