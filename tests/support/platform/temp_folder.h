// A folder of its own for one test, gone when the test is.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/temp_folder.h"

namespace support {

class TempFolder {
  public:
    [[nodiscard]] const std::filesystem::path& Path() const { return folder_.Path(); }
    [[nodiscard]] std::string File(std::string_view name) const { return (Path() / name).string(); }

    void Write(std::string_view name, std::string_view bytes) const {
        std::ofstream(Path() / name, std::ios::binary) << bytes;
    }

    [[nodiscard]] std::string Read(std::string_view name) const {
        std::ifstream file(Path() / name, std::ios::binary);
        if (!file) throw std::runtime_error("no file " + std::string(name));
        return {std::istreambuf_iterator<char>(file), {}};
    }

    [[nodiscard]] bool Has(std::string_view name) const {
        return std::filesystem::exists(Path() / name);
    }

  private:
    platform::TempFolder folder_;
};

}  // namespace support
