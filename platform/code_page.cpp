#include "platform/code_page.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

// The characters of the bytes 0x80 to 0x9F; every other byte is the character of its own code.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    const auto* const found =
        std::find_if(kUpperControls.begin(), kUpperControls.end(),
                     [&](char16_t each) { return char32_t{each} == character; });
    if (found == kUpperControls.end()) return '?';
    return static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

int SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xF0) return 4;
    if (lead >= 0xE0) return 3;
    return lead >= 0xC0 ? 2 : 1;
}

}  // namespace

std::string EncodeWindows1252(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[at]);
        const int length = SequenceLength(lead);
        char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
        std::size_t next = at + 1;
        for (; next < utf8.size() && next < at + static_cast<std::size_t>(length); ++next) {
            const auto byte = static_cast<unsigned char>(utf8[next]);
            if ((byte & 0xC0U) != 0x80U) break;
            character = (character << 6U) | (byte & 0x3FU);
        }
        const bool wellFormed = lead < 0x80 || (length > 1 && next == at + std::size_t(length));
        bytes += wellFormed ? ByteOf(character) : '?';
        at = next;
    }
    return bytes;
}

std::string DecodeWindows1252(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        const char16_t character = code >= 0x80 && code < 0xA0 ? kUpperControls[code - 0x80] : code;
        if (character < 0x80) {
            utf8 += static_cast<char>(character);
        } else if (character < 0x800) {
            utf8 += static_cast<char>(0xC0U | static_cast<unsigned>(character >> 6U));
            utf8 += static_cast<char>(0x80U | (character & 0x3FU));
        } else {
            utf8 += static_cast<char>(0xE0U | static_cast<unsigned>(character >> 12U));
            utf8 += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
            utf8 += static_cast<char>(0x80U | (character & 0x3FU));
        }
    }
    return utf8;
}

}  // namespace platform
