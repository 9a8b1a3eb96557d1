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

// Writes the file beside its place and puts it there in one step; an existing one is replaced. A
// relative name is meant from the current directory. Errors 61, 70, 75, 76.
void SaveXmlFile(std::string_view fileName, std::string_view xml);

}  // namespace platform::sapdi
