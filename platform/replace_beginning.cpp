#include "platform/replace_beginning.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/descriptor.h"
#include "platform/error.h"
#include "platform/files.h"

namespace platform {

namespace {

Descriptor Opened(const std::filesystem::path& path) {
    Descriptor file;
    if (const int failure = OpenRegularFile(path, O_RDONLY, file); failure != 0)
        throw ErrorFromErrno(failure, "read", path.string());
    return file;
}

int SkipTo(const Descriptor& file, std::uint64_t offset) {
    return ::lseek(file.Get(), static_cast<off_t>(offset), SEEK_SET) >= 0 ? 0 : errno;
}

int CopyFile(std::string_view from, int to) {
    return from.empty() ? 0 : CopyAll(Opened(ResolvePath(from)).Get(), to);
}

// Where the next byte is written.
int TellPlace(int descriptor, std::uint64_t& place) {
    const off_t offset = ::lseek(descriptor, 0, SEEK_CUR);
    place = static_cast<std::uint64_t>(offset);
    return offset >= 0 ? 0 : errno;
}

}  // namespace

std::uint64_t ReplaceBeginning(std::string_view name, std::uint64_t length, std::string_view text,
                               std::string_view file) {
    const std::filesystem::path path = ResolvePath(name);
    const Descriptor old = Opened(path);
    ReplacementFile made(path);
    std::uint64_t beginning = 0;
    int failure = made.Create();
    if (failure == 0) failure = WriteAll(made.Get(), text);
    if (failure == 0) failure = CopyFile(file, made.Get());
    if (failure == 0) failure = TellPlace(made.Get(), beginning);
    if (failure == 0) failure = SkipTo(old, length);
    if (failure == 0) failure = CopyAll(old.Get(), made.Get());
    if (failure == 0) failure = made.Commit();
    if (failure != 0) throw ErrorOfCreating(failure, "write", path);
    return beginning;
}

}  // namespace platform
