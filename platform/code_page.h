// Windows-1252, the 8-bit code page of the profile files and import files.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// UTF-8 to Windows-1252; a character that the code page lacks becomes '?'.
[[nodiscard]] std::string EncodeWindows1252(std::string_view utf8);

// Windows-1252 to UTF-8; the five bytes that it leaves undefined become the controls of their code.
[[nodiscard]] std::string DecodeWindows1252(std::string_view bytes);

}  // namespace platform
