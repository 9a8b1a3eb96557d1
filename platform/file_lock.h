// The lock that keeps a file to one server at a time, whatever folder each works in. It lies on a
// file of its own beside, NAME.lock, because the file itself is replaced by a rename. The system
// drops it with the process that holds it, however that ends; what is left of the lock file then is
// taken by the next.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/descriptor.h"

namespace platform {

// The file that a lock of this name is for, behind links; empty where there is nothing to hold: no
// name, or what is no regular file.
[[nodiscard]] std::filesystem::path FileToLock(std::string_view name);

class FileLock {
  public:
    // `file` as FileToLock gives it; one that need not exist yet. Error 70 where another holds it,
    // which says who. Where no lock can be made (a folder that is missing or write-protected, a
    // file system without locks) nothing is held: whoever then opens the file learns what is wrong.
    // Programs that are started meanwhile do not hold it on.
    explicit FileLock(const std::filesystem::path& file);
    ~FileLock() { Release(); }
    FileLock(FileLock&& other) noexcept = default;
    FileLock& operator=(FileLock&& other) = delete;

    [[nodiscard]] bool IsHeld() const { return descriptor_.IsOpen(); }

  private:
    [[nodiscard]] bool Take(const std::filesystem::path& file);
    void SignIn();
    void Release();

    std::filesystem::path path_;  // of the lock file
    Descriptor descriptor_;       // open while it is held
    bool isOurs_ = false;         // made by a server, so it goes with the lock
};

}  // namespace platform
