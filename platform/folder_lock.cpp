#include "platform/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <filesystem>

#include "platform/error.h"
#include "platform/files.h"

namespace platform {

FolderLock::FolderLock(std::string_view folder) {
    const std::filesystem::path path = ResolvePath(folder);
    descriptor_ = Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor_.IsOpen()) {
        if (errno == ENOENT || errno == ENOTDIR) {
            throw RuntimeError(error_number::kPathNotFound, "There is no folder " + path.string());
        }
        throw ErrorFromErrno(errno, "open the folder", path.string());
    }
    // Any other failure: a network file system without locks on folders, where the server works
    // unguarded rather than not at all.
    if (::flock(descriptor_.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        throw RuntimeError(error_number::kPermissionDenied,
                           "Another server works in the folder " + path.string());
    }
}

}  // namespace platform
