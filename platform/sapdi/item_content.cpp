#include "platform/sapdi/item_content.h"

#include <string>

#include "platform/error.h"

namespace platform::sapdi {

void PriceListContent::SetCurrentLine(std::int32_t line) {
    (void)LineAt(line);
    currentLine_ = line;
}

std::vector<PriceListContent::Line>& PriceListContent::Lines() {
    if (!lines_) {
        std::vector<Line> lines;
        for (Value& number : reader_())
            lines.push_back({std::move(number), std::nullopt});
        lines_ = std::move(lines);
    }
    return *lines_;
}

void PriceListContent::Reset() {
    lines_.reset();
    currentLine_ = 0;
}

PriceListContent::Line& PriceListContent::LineAt(std::int32_t line) {
    if (line >= 0 && static_cast<std::size_t>(line) < Lines().size()) {
        return Lines()[static_cast<std::size_t>(line)];
    }
    throw RuntimeError(error_number::kIndexOutOfRange,
                       "Price list: there is no line " + std::to_string(line));
}

}  // namespace platform::sapdi
