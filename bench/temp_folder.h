// A folder of its own for what is measured, gone at the end.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace bench {

class TempFolder {
  public:
    TempFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "kvbench-XXXXXX").string();
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

  private:
    std::filesystem::path path_;
};

}  // namespace bench
