// Gives a file another beginning.
#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

// Puts `text`, then the content of the file `file` (of none where that is empty), in the place of
// the first `length` bytes of the file `name`: in one step, on disk. Gives the length of the new
// beginning. Errors 53, 61, 70, 75; the file is as it was then.
std::uint64_t ReplaceBeginning(std::string_view name, std::uint64_t length, std::string_view text,
                               std::string_view file);

}  // namespace platform
