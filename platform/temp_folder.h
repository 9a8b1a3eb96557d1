// A folder of its own in the system's temporary one, gone with the object.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/error.h"

namespace platform {

class TempFolder {
  public:
    // Nobody else may enter it. Error 75 where it can not be made.
    TempFolder() {
        std::error_code failure;
        const std::filesystem::path parent = std::filesystem::temp_directory_path(failure);
        std::string pattern = (parent / "kvdayend-XXXXXX").string();
        if (failure || ::mkdtemp(pattern.data()) == nullptr) {
            throw RuntimeError(error_number::kPathAccess,
                               "Can not make a folder in the temporary folder " + parent.string());
        }
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

}  // namespace platform
