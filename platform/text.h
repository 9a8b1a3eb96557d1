// Texts in UTF-8, counted and cut by characters (Unicode code points), never by bytes.
// "Blank" is the space character alone, as in the file formats that the system reads and writes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

[[nodiscard]] std::size_t Length(std::string_view text);

// The first `count` characters; the whole text where it is shorter.
[[nodiscard]] std::string Left(std::string_view text, std::size_t count);

// `count` characters from `position` (counted from 1); fewer where the text ends before.
// A position below 1 or a negative count is error 5.
[[nodiscard]] std::string Mid(std::string_view text, long position, long count);

[[nodiscard]] std::string_view Trim(std::string_view text);
[[nodiscard]] std::string_view TrimLeft(std::string_view text);
[[nodiscard]] std::string_view TrimRight(std::string_view text);

[[nodiscard]] bool IsBlank(std::string_view text);

// Of the Latin letters, the Norwegian ones among them; the number of characters does not change.
[[nodiscard]] std::string Upper(std::string_view text);

[[nodiscard]] bool EqualsIgnoreCase(std::string_view left, std::string_view right);

// The place of the first `wanted`, in characters from 1; 0 where there is none.
[[nodiscard]] std::size_t FindIgnoreCase(std::string_view text, std::string_view wanted);

[[nodiscard]] std::string Digits(int number, int width);  // not negative, zeros in front

// `text` with blanks on the right up to `width` characters; a longer text stays whole.
[[nodiscard]] std::string PadRight(std::string_view text, std::size_t width);

}  // namespace platform
