#include "platform/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <system_error>

#include "platform/error.h"
#include "platform/files.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

// What every lock file of a server begins with; others of that name are somebody's own.
constexpr std::string_view kSignature = "KVDayEndServer, process ";

std::string Signature() {
    std::array<char, HOST_NAME_MAX + 1> host{};
    if (::gethostname(host.data(), host.size() - 1) != 0) host[0] = '?';
    std::error_code ignored;
    return std::string(kSignature) + std::to_string(::getpid()) + " on " + host.data() +
           ", in the folder " + fs::current_path(ignored).string();
}

// As much of it as a description bears.
std::string StartOfContent(int descriptor) {
    std::array<char, 512> block{};
    const ssize_t count = ::pread(descriptor, block.data(), block.size(), 0);
    return {block.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

bool IsRegular(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

// A lock file that was taken away after it was opened guards nothing.
bool IsStillAt(const fs::path& path, int descriptor) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

bool IsFolder(const fs::path& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

// A lock file of another user can be read at least, which is enough to wait for it or to take it.
Descriptor OpenLockFile(const fs::path& path, bool& isNew) {
    constexpr int kFlags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | kFlags, 0666));
    isNew = file.IsOpen();
    if (isNew || errno != EEXIST) return file;
    file = Descriptor(::open(path.c_str(), O_RDWR | kFlags));
    if (!file.IsOpen() && errno == EACCES) {
        file = Descriptor(::open(path.c_str(), O_RDONLY | kFlags));
    }
    return file;
}

}  // namespace

fs::path FileToLock(std::string_view name) {
    std::error_code failure;
    fs::path file = fs::weakly_canonical(fs::absolute(ResolvePath(name), failure), failure);
    if (name.empty() || failure || file.filename().empty()) return {};
    const fs::file_status status = fs::symlink_status(file, failure);
    return fs::exists(status) && !fs::is_regular_file(status) ? fs::path() : file;
}

FileLock::FileLock(const fs::path& file) : path_(file) {
    if (file.empty()) return;
    path_ += ".lock";
    constexpr int kAttempts = 100;  // each but the last meets a server that just ends its run
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (Take(file)) return;
    }
}

// Whether there is nothing more to try.
bool FileLock::Take(const fs::path& file) {
    bool isNew = false;
    Descriptor opened = OpenLockFile(path_, isNew);
    // Gone again since it was met.
    if (!opened.IsOpen() && errno == ENOENT && IsFolder(FolderOf(path_))) return false;
    if (!opened.IsOpen() || !IsRegular(opened.Get())) return true;
    if (::flock(opened.Get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK) return true;
        if (!IsStillAt(path_, opened.Get())) return false;
        const std::string content = StartOfContent(opened.Get());
        throw RuntimeError(
            error_number::kPermissionDenied,
            file.string() + " is used by " +
                (content.starts_with(kSignature) ? content.substr(0, content.find('\n'))
                                                 : "another server"));
    }
    if (!IsStillAt(path_, opened.Get())) return false;
    descriptor_ = std::move(opened);
    // An empty one that was there may be what others tell each other by.
    isOurs_ = isNew || StartOfContent(descriptor_.Get()).starts_with(kSignature);
    if (isOurs_) SignIn();
    return true;
}

void FileLock::SignIn() {
    if (::ftruncate(descriptor_.Get(), 0) != 0) return;
    // Without it the other is told less.
    const std::string signature = Signature() + "\n";
    std::string_view rest = signature;
    (void)WriteAll(descriptor_.Get(), rest);
}

// Gone while it is held: whoever opened it meanwhile sees that it is, and makes a new one.
void FileLock::Release() {
    if (!IsHeld()) return;
    if (isOurs_ && IsStillAt(path_, descriptor_.Get())) ::unlink(path_.c_str());
    descriptor_.Close();
}

}  // namespace platform
