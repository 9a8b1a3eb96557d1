#include "platform/text.h"

#include "platform/error.h"

namespace platform {

namespace {

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// The byte offset of the character `count` characters on; the text's size where it ends before.
std::size_t OffsetOf(std::string_view text, std::size_t count) {
    std::size_t offset = 0;
    for (; count > 0 && offset < text.size(); --count) {
        ++offset;
        while (offset < text.size() && IsContinuation(text[offset]))
            ++offset;
    }
    return offset;
}

bool IsEvenUpperRange(char32_t c) {  // capitals on even code points, small letters behind them
    return (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177) || (c >= 0x1DE && c <= 0x1EF) ||
           (c >= 0x1F8 && c <= 0x21F) || (c >= 0x222 && c <= 0x233) ||
           (c >= 0x1E00 && c <= 0x1E95) || (c >= 0x1EA0 && c <= 0x1EFF);
}

bool IsOddUpperRange(char32_t c) {  // capitals on odd code points
    return (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E) || (c >= 0x1CD && c <= 0x1DC);
}

char32_t UpperOf(char32_t c) {
    if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 0x20 : c;
    if (c >= 0xE0 && c <= 0xFE) return c == 0xF7 ? c : c - 0x20;
    if (c == 0xFF) return 0x178;
    if (c == 0x131) return 'I';
    if (c == 0x17F) return 'S';
    if (IsEvenUpperRange(c)) return c & ~char32_t{1};
    if (IsOddUpperRange(c)) return (c & 1U) != 0 ? c : c - 1;
    return c;
}

// Letters whose capital lies in UTF-8's one- and two-byte range and the 1E00 block; what is no
// well-formed sequence comes back as one byte, negative.
struct Decoded {
    char32_t character;
    std::size_t bytes;
    bool wellFormed;
};

Decoded DecodeAt(std::string_view text, std::size_t offset) {
    const auto byte = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[offset + i]));
    };
    const std::size_t left = text.size() - offset;
    const char32_t lead = byte(0);
    const auto continues = [&](std::size_t count) {
        if (left <= count) return false;
        for (std::size_t i = 1; i <= count; ++i) {
            if (!IsContinuation(text[offset + i])) return false;
        }
        return true;
    };
    if (lead < 0x80) return {lead, 1, true};
    if (lead >= 0xC2 && lead <= 0xDF && continues(1)) {
        return {((lead & 0x1FU) << 6U) | (byte(1) & 0x3FU), 2, true};
    }
    if (lead >= 0xE0 && lead <= 0xEF && continues(2)) {
        return {((lead & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU), 3, true};
    }
    return {lead, 1, false};
}

void Append(std::string& text, char32_t c) {
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0U | (c >> 6U));
        text += static_cast<char>(0x80U | (c & 0x3FU));
    } else {
        text += static_cast<char>(0xE0U | (c >> 12U));
        text += static_cast<char>(0x80U | ((c >> 6U) & 0x3FU));
        text += static_cast<char>(0x80U | (c & 0x3FU));
    }
}

}  // namespace

std::size_t Length(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count)
        text.remove_prefix(OffsetOf(text, 1));
    return count;
}

std::string Left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, OffsetOf(text, count)));
}

std::string Mid(std::string_view text, long position, long count) {
    if (position < 1 || count < 0) {
        throw RuntimeError(error_number::kInvalidArgument,
                           "Invalid procedure call or argument: " + std::to_string(count) +
                               " characters from position " + std::to_string(position) + " of \"" +
                               std::string(text) + "\"");
    }
    const std::string_view rest =
        text.substr(OffsetOf(text, static_cast<std::size_t>(position) - 1));
    return Left(rest, static_cast<std::size_t>(count));
}

std::string_view TrimLeft(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view TrimRight(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view Trim(std::string_view text) {
    return TrimRight(TrimLeft(text));
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

std::string Upper(std::string_view text) {
    std::string upper;
    upper.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        const Decoded next = DecodeAt(text, offset);
        const char32_t capital = next.wellFormed ? UpperOf(next.character) : next.character;
        if (next.wellFormed && capital != next.character) {
            Append(upper, capital);
        } else {
            upper.append(text.substr(offset, next.bytes));
        }
        offset += next.bytes;
    }
    return upper;
}

bool EqualsIgnoreCase(std::string_view left, std::string_view right) {
    return left == right || Upper(left) == Upper(right);
}

std::size_t FindIgnoreCase(std::string_view text, std::string_view wanted) {
    const std::string upper = Upper(text);
    const std::size_t offset = upper.find(Upper(wanted));
    if (offset == std::string::npos) return 0;
    return Length(std::string_view(upper).substr(0, offset)) + 1;
}

std::string Digits(int number, int width) {
    std::string digits = std::to_string(number);
    const auto wanted = static_cast<std::size_t>(width);
    if (digits.size() < wanted) digits.insert(0, wanted - digits.size(), '0');
    return digits;
}

std::string PadRight(std::string_view text, std::size_t width) {
    std::string padded(text);
    const std::size_t length = Length(text);
    if (length < width) padded.append(width - length, ' ');
    return padded;
}

}  // namespace platform
