#include "platform/sapdi/xml_rendering.h"

#include <array>
#include <charconv>

#include "platform/norwegian.h"

namespace platform::sapdi {
namespace {

void AppendEscaped(std::string& xml, std::string_view text) {
    for (const char character : text) {
        switch (character) {
            case '&':
                xml += "&amp;";
                break;
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            case '\r':  // a reader would take it for a line feed
                xml += "&#13;";
                break;
            case '\n':
            case '\t':
                xml += character;
                break;
            default:
                // XML has no way to write the other control characters.
                if (static_cast<unsigned char>(character) < 0x20) {
                    xml += "\uFFFD";
                } else {
                    xml += character;
                }
        }
    }
}

// With a decimal point, in as many digits as it takes to read the same number back.
std::string NumberXml(double number) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

void AppendRow(std::string& xml, const XmlTable& table, const std::vector<Value>& row) {
    xml += "      <row>\n";
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (row[i].IsNull()) continue;
        xml.append("        <").append(table.columns[i]).append(">");
        const double* number = row[i].AsFloating();
        AppendEscaped(xml, number != nullptr ? NumberXml(*number) : ToText(row[i]));
        xml.append("</").append(table.columns[i]).append(">\n");
    }
    xml += "      </row>\n";
}

}  // namespace

std::string ObjectXml(ObjectType type, std::span<const XmlTable> tables) {
    std::string xml =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<BOM>\n  <BO>\n    <AdmInfo>\n      <Object>" +
        std::to_string(static_cast<int>(type)) + "</Object>\n    </AdmInfo>\n";
    for (const XmlTable& table : tables) {
        xml.append("    <").append(table.name).append(">\n");
        for (const std::vector<Value>& row : table.rows)
            AppendRow(xml, table, row);
        xml.append("    </").append(table.name).append(">\n");
    }
    return xml += "  </BO>\n</BOM>\n";
}

}  // namespace platform::sapdi
