// A folder of its own for one test, gone when the test is.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace support {

class TempFolder {
  public:
    TempFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "kvtest-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path_ = pattern;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
    [[nodiscard]] std::string File(std::string_view name) const { return (path_ / name).string(); }

    void Write(std::string_view name, std::string_view bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }

    [[nodiscard]] std::string Read(std::string_view name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        if (!file) throw std::runtime_error("no file " + std::string(name));
        return {std::istreambuf_iterator<char>(file), {}};
    }

    [[nodiscard]] bool Has(std::string_view name) const {
        return std::filesystem::exists(path_ / name);
    }

  private:
    std::filesystem::path path_;
};

}  // namespace support
