// The names of the persisted recordset's XML vocabulary, and the form in which the parser hands out
// names: URI, separator, local name; a name without a namespace is the local name alone.
#pragma once

#include <string_view>

namespace platform::recordset_file {

// No URI may contain it, so a name can not pretend to a namespace.
inline constexpr char kNameSeparator = '\n';

namespace xml_space {
inline constexpr std::string_view kSchema = "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882";
inline constexpr std::string_view kDataType = "uuid:C2F41010-65B3-11d1-A29F-00AA00C14882";
inline constexpr std::string_view kRowset = "urn:schemas-microsoft-com:rowset";
inline constexpr std::string_view kRow = "#RowsetSchema";
}  // namespace xml_space

struct XmlName {
    std::string_view space;
    std::string_view local;
};

[[nodiscard]] inline XmlName SplitName(std::string_view name) {
    const auto separator = name.rfind(kNameSeparator);
    if (separator == std::string_view::npos) return {{}, name};
    return {name.substr(0, separator), name.substr(separator + 1)};
}

}  // namespace platform::recordset_file
