#include "platform/sapdi/head_and_lines.h"

#include <array>
#include <utility>

#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/sapdi/xml_rendering.h"

namespace platform::sapdi {

HeadAndLines::HeadAndLines(const HeadAndLinesNames& names)
    : names_(names), head_(names.headColumns.size()), lines_{Row(names.lineColumns.size())} {}

void HeadAndLines::AddLine() {
    lines_.emplace_back(names_.lineColumns.size());
    currentLine_ = lines_.size() - 1;
}

void HeadAndLines::SetCurrentLine(std::int32_t place) {
    if (place < 0 || static_cast<std::size_t>(place) >= lines_.size()) {
        throw RuntimeError(
            error_number::kIndexOutOfRange,
            std::string(names_.lines) + ": there is no line " + std::to_string(place));
    }
    currentLine_ = static_cast<std::size_t>(place);
}

void HeadAndLines::Replace(Row head, std::vector<Row> lines) {
    if (lines.empty()) lines.emplace_back(names_.lineColumns.size());
    head_ = std::move(head);
    lines_ = std::move(lines);
    currentLine_ = 0;
}

std::int32_t HeadAndLines::Number() const {
    const std::int64_t* number = head_.back().AsWhole();
    return number == nullptr ? 0 : ToInt32(*number);
}

void HeadAndLines::SetNumber(std::int32_t number) {
    head_.back() = number;
}

std::string HeadAndLines::ToXml() const {
    const std::array<XmlTable, 2> content = {
        XmlTable{names_.head, names_.headColumns, std::span(&head_, 1)},
        XmlTable{names_.lines, names_.lineColumns, lines_}};
    return ObjectXml(names_.type, content);
}

}  // namespace platform::sapdi
