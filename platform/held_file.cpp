#include "platform/held_file.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

namespace {

Descriptor FileAt(const std::filesystem::path& path) {
    return Descriptor(::open(path.c_str(), O_PATH | O_CLOEXEC));
}

}  // namespace

HeldFile::HeldFile(std::string_view name)
    : name_(name), descriptor_(FileAt(ResolvePath(name))), identity_(IdentityOf(descriptor_)) {}

bool HeldFile::IsUnchanged() const {
    return IdentityOf(FileAt(ResolvePath(name_))) == identity_;
}

bool HeldFile::IsAlso(const std::filesystem::path& other) const {
    const std::optional<Identity> identity = IdentityOf(FileAt(other));
    return identity && identity_ && identity->device == identity_->device &&
           identity->stamp.number == identity_->stamp.number;
}

bool HeldFile::HasOtherNames() const {
    struct stat status {};
    return identity_ && ::fstat(descriptor_.Get(), &status) == 0 && status.st_nlink > 1;
}

std::optional<HeldFile::Identity> HeldFile::IdentityOf(const Descriptor& descriptor) {
    struct stat status {};
    if (!descriptor.IsOpen() || ::fstat(descriptor.Get(), &status) != 0 ||
        !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return Identity{status.st_dev, StampFrom(status)};
}

}  // namespace platform
