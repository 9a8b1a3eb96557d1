#include "ui/terminal/printable.h"

#include <cstddef>

namespace ui::terminal {

namespace {

constexpr unsigned char kDelete = 0x7F;
constexpr unsigned char kLeadOfSecondSet = 0xC2;  // U+0080 to U+009F: C2 80 to C2 9F

unsigned char ByteAt(std::string_view text, std::size_t place) {
    return place < text.size() ? static_cast<unsigned char>(text[place]) : '\0';
}

// How many bytes of the text are a control character that stands at its start.
std::size_t ControlLength(std::string_view text) {
    const unsigned char first = ByteAt(text, 0);
    if (first < ' ' || first == kDelete) return 1;
    const unsigned char second = ByteAt(text, 1);
    return first == kLeadOfSecondSet && second >= 0x80 && second <= 0x9F ? 2 : 0;
}

std::string Escaped(std::string_view text, char kept) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = text.front() == kept ? 0 : ControlLength(text);
        if (length == 0) {
            shown += text.front();
            text.remove_prefix(1);
            continue;
        }
        const unsigned char code = ByteAt(text, length - 1);
        shown += "\\x";
        shown += kDigits[code >> 4U];
        shown += kDigits[code & 0xFU];
        text.remove_prefix(length);
    }
    return shown;
}

}  // namespace

std::string Printable(std::string_view text) {
    return Escaped(text, '\n');
}

std::string PrintableLine(std::string_view line) {
    constexpr char kNothing = 'x';  // no control character
    return Escaped(line, kNothing);
}

}  // namespace ui::terminal
