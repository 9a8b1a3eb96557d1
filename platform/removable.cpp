#include "platform/removable.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/descriptor.h"
#include "platform/error.h"
#include "platform/files.h"

namespace platform {

namespace {

bool StatusOf(const std::filesystem::path& path, struct statx& status) {
    return ::statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS, &status) == 0;
}

bool IsProtected(const struct statx& status) {
    return (status.stx_attributes & (STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND)) != 0;
}

// In a sticky folder somebody else's file; the superuser may take it all the same.
bool IsItsOwnersAlone(const struct statx& file, const struct statx& folder) {
    const uid_t user = ::geteuid();
    return (folder.stx_mode & S_ISVTX) != 0 && user != 0 && user != file.stx_uid &&
           user != folder.stx_uid;
}

RuntimeError CanNotRemove(const std::filesystem::path& path, const std::string& reason) {
    return {error_number::kPathAccess,
            "Can not replace " + path.string() + " or give it another name: " + reason};
}

}  // namespace

void RequireRemovable(std::string_view name) {
    const std::filesystem::path path = ResolvePath(name);
    struct statx file {};
    if (!StatusOf(path, file)) return;
    RequireWritableFolderOf(path.string());
    struct statx folder {};
    if (!StatusOf(FolderOf(path) / ".", folder)) return;
    if (IsProtected(file)) throw CanNotRemove(path, "it is protected from changes");
    if (IsProtected(folder)) throw CanNotRemove(path, "its folder is protected from changes");
    if (IsItsOwnersAlone(file, folder)) {
        throw CanNotRemove(path, "in its folder only the owner of a file may do that");
    }
}

}  // namespace platform
