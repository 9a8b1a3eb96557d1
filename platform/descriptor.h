// Files of the operating system below the routines that the system sees: an open file that closes
// itself, and the steps that several of them share. Failures are errno values (0: none), because
// each user turns them into codes of its own. Knows nothing of code pages or lines.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "platform/error.h"

namespace platform {

class Descriptor {
  public:
    explicit Descriptor(int descriptor = -1) : descriptor_(descriptor) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : descriptor_(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept;

    [[nodiscard]] int Get() const { return descriptor_; }
    [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int Release() { return std::exchange(descriptor_, -1); }
    int Close();

  private:
    int descriptor_;
};

// Opens a regular file, with the flags of open(2) and close-on-exec. A folder is EISDIR, anything
// else of that name kNoRegularFile, at once: a FIFO would wait for its other end, a device do what
// it does. With O_NOFOLLOW a link is not one either. `file` is open where the answer is 0.
[[nodiscard]] int OpenRegularFile(const std::filesystem::path& path, int flags, Descriptor& file);

// Has reads and writes wait again where the file was opened with O_NONBLOCK.
[[nodiscard]] int MakeBlocking(int descriptor);

// Writes all bytes and takes what is written off the front of `bytes`.
[[nodiscard]] int WriteAll(int descriptor, std::string_view& bytes);

// Both go on from where the file stands to its end, ReadAll behind what `bytes` holds.
[[nodiscard]] int ReadAll(int descriptor, std::string& bytes);
[[nodiscard]] int CopyAll(int from, int to);

// Has the system begin to put the content on disk, so that SyncContent has less to wait for.
void BeginSync(int descriptor);

// Asks the system to put the content on disk; a device that has no disk is no failure.
[[nodiscard]] int SyncContent(int descriptor);

// The folder that holds `path`; "." where the path names none.
[[nodiscard]] std::filesystem::path FolderOf(const std::filesystem::path& path);

// Puts the names in the folder of `path` on disk.
[[nodiscard]] int SyncFolderOf(const std::filesystem::path& path);

// A failure to create or open for writing: error 76 where the folder is missing, else by errno.
[[nodiscard]] RuntimeError ErrorOfCreating(int errnoValue, std::string_view verb,
                                           const std::filesystem::path& path);

// A new file beside `target` that takes its place in one step; gone again without Commit. What a
// process that was killed has left of one goes when the next one for the same target is made.
class ReplacementFile {
  public:
    explicit ReplacementFile(std::filesystem::path target) : target_(std::move(target)) {}
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    [[nodiscard]] int Create();
    [[nodiscard]] int Get() const { return descriptor_.Get(); }

    // Best effort for the owner: only the superuser can give files away.
    [[nodiscard]] int TakeOwnerAndMode(int fromDescriptor);

    // On disk first, then the name: after a power failure the target is the old or the new content.
    [[nodiscard]] int Commit();

  private:
    std::filesystem::path target_;
    std::filesystem::path path_;
    Descriptor descriptor_;
};

}  // namespace platform
