// SHA-256 (FIPS 180-4) of files.
#pragma once

#include <initializer_list>
#include <string>

namespace platform {

// Of the bytes of the files, one after the other: 64 lower-case hexadecimal digits. A file that can
// not be read is an error with its name.
[[nodiscard]] std::string Sha256OfFiles(std::initializer_list<std::string> names);

}  // namespace platform
