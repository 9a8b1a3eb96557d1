#include "platform/descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    if (this != &other) {
        Close();
        descriptor_ = other.Release();
    }
    return *this;
}

int Descriptor::Close() {
    if (!IsOpen()) return 0;
    // An interrupted close has closed the file all the same.
    return ::close(Release()) == 0 || errno == EINTR ? 0 : errno;
}

namespace {

int FailureOfKind(mode_t mode) {
    return S_ISDIR(mode) ? EISDIR : kNoRegularFile;
}

}  // namespace

int OpenRegularFile(const fs::path& path, int flags, Descriptor& file) {
    struct stat status {};
    const bool followsLink = (flags & O_NOFOLLOW) == 0;
    const int known = followsLink ? ::stat(path.c_str(), &status) : ::lstat(path.c_str(), &status);
    if (known == 0 && !S_ISREG(status.st_mode)) return FailureOfKind(status.st_mode);
    // Asked again once it is open, where no other file can take its place.
    Descriptor opened(::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666));
    if (!opened.IsOpen()) return errno;
    if (::fstat(opened.Get(), &status) != 0) return errno;
    if (!S_ISREG(status.st_mode)) return FailureOfKind(status.st_mode);
    if (const int failure = MakeBlocking(opened.Get()); failure != 0) return failure;
    file = std::move(opened);
    return 0;
}

int MakeBlocking(int descriptor) {
    const int flags = ::fcntl(descriptor, F_GETFL);
    return flags >= 0 && ::fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK) == 0 ? 0 : errno;
}

int WriteAll(int descriptor, std::string_view& bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int ReadAll(int descriptor, std::string& bytes) {
    std::array<char, std::size_t{16} * 1024> block;
    for (;;) {
        const ssize_t count = ::read(descriptor, block.data(), block.size());
        if (count == 0) return 0;
        if (count > 0) {
            bytes.append(block.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return errno;
        }
    }
}

int CopyAll(int from, int to) {
    constexpr std::size_t kChunk = std::size_t{64} * 1024 * 1024;
    while (::copy_file_range(from, nullptr, to, nullptr, kChunk, 0) > 0) {
    }
    // Where the file system can not do that, or failed in it, the plain way does the rest or tells
    // what is wrong; both stand where the last chunk ended.
    std::array<char, std::size_t{64} * 1024> block;
    for (;;) {
        const ssize_t count = ::read(from, block.data(), block.size());
        if (count == 0) return 0;
        if (count < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        std::string_view bytes(block.data(), static_cast<std::size_t>(count));
        if (const int failure = WriteAll(to, bytes); failure != 0) return failure;
    }
}

void BeginSync(int descriptor) {
    (void)::sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
}

int SyncContent(int descriptor) {
    return ::fdatasync(descriptor) == 0 || errno == EINVAL ? 0 : errno;
}

fs::path FolderOf(const fs::path& path) {
    const fs::path folder = path.parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

int SyncFolderOf(const fs::path& path) {
    const Descriptor folder(::open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A folder in which one may write but not read can not be opened, so not be synced either.
    if (!folder.IsOpen()) return errno == EACCES ? 0 : errno;
    return ::fsync(folder.Get()) == 0 || errno == EINVAL ? 0 : errno;
}

RuntimeError ErrorOfCreating(int errnoValue, std::string_view verb, const fs::path& path) {
    std::error_code ignored;
    const fs::path folder = FolderOf(path);
    if (errnoValue == ENOENT && !fs::is_directory(folder, ignored)) {
        return {error_number::kPathNotFound, "Can not " + std::string(verb) + " " + path.string() +
                                                 ": there is no folder " + folder.string()};
    }
    return ErrorFromErrno(errnoValue, verb, path.string());
}

namespace {

constexpr std::string_view kNewEnding = ".new";

// The process that a name ".PID-NUMBER.new" is made by; nothing for any other name.
std::optional<pid_t> MakerOf(std::string_view name) {
    if (!name.starts_with('.') || !name.ends_with(kNewEnding)) return std::nullopt;
    name.remove_prefix(1);
    name.remove_suffix(kNewEnding.size());
    const char* const end = name.data() + name.size();
    pid_t process = 0;
    const auto [dash, fault] = std::from_chars(name.data(), end, process);
    if (fault != std::errc() || process <= 0 || dash == end || *dash != '-') return std::nullopt;
    int attempt = 0;
    const auto [rest, secondFault] = std::from_chars(dash + 1, end, attempt);
    if (secondFault != std::errc() || rest != end) return std::nullopt;
    return process;
}

bool IsGone(pid_t process) {
    return ::kill(process, 0) != 0 && errno == ESRCH;
}

// As far as it can be done: they only take room.
void RemoveLeftOvers(const fs::path& target) {
    const std::string name = target.filename().string();
    std::error_code failure;
    fs::directory_iterator entry(FolderOf(target), failure);
    for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
        const std::string other = entry->path().filename().string();
        if (!other.starts_with(name)) continue;
        const auto maker = MakerOf(std::string_view(other).substr(name.size()));
        if (maker && IsGone(*maker)) ::unlink(entry->path().c_str());
    }
}

}  // namespace

ReplacementFile::~ReplacementFile() {
    if (!path_.empty()) ::unlink(path_.c_str());
}

int ReplacementFile::Create() {
    RemoveLeftOvers(target_);
    constexpr int kAttempts = 100;  // names that an earlier process of this number may have left
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        fs::path path = target_;
        path += "." + std::to_string(::getpid()) + "-" + std::to_string(attempt);
        path += kNewEnding;
        descriptor_ =
            Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (descriptor_.IsOpen()) {
            path_ = std::move(path);
            return 0;
        }
        if (errno != EEXIST) return errno;
    }
    return EEXIST;
}

int ReplacementFile::TakeOwnerAndMode(int fromDescriptor) {
    struct stat status {};
    if (::fstat(fromDescriptor, &status) != 0) return errno;
    const bool isOwners = ::fchown(Get(), status.st_uid, status.st_gid) == 0;
    const mode_t kept = isOwners ? 07777U : 0777U;  // no set-user-id for somebody else
    return ::fchmod(Get(), status.st_mode & kept) == 0 ? 0 : errno;
}

int ReplacementFile::Commit() {
    if (const int failure = SyncContent(descriptor_.Get()); failure != 0) return failure;
    if (const int failure = descriptor_.Close(); failure != 0) return failure;
    if (::rename(path_.c_str(), target_.c_str()) != 0) return errno;
    path_.clear();
    return SyncFolderOf(target_);
}

}  // namespace platform
