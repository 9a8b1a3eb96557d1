#include "platform/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <system_error>
#include <utility>

#include "platform/code_page.h"
#include "platform/descriptor.h"
#include "platform/error.h"
#include "platform/files.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBufferSize = std::size_t{256} * 1024;
constexpr std::size_t kSyncDistance = std::size_t{8} * 1024 * 1024;
constexpr int kBadFileNumber = 52;

// One spelling for every way to name a file, whether it exists yet or not. A link in the place of
// the file itself stays: a working copy that is written through one would change another file.
fs::path CanonicalPath(std::string_view name) {
    std::error_code failure;
    const fs::path path = fs::absolute(ResolvePath(name), failure);
    const fs::path folder = fs::weakly_canonical(path.parent_path(), failure);
    return failure ? path : folder / path.filename();
}

// A new file under that name. What a run that was broken off has left, whoever it belonged to,
// makes room and is not written to: it could have a second name, or be open elsewhere. Whatever is
// no regular file stays, and is an error.
int CreateAnew(const fs::path& path, Descriptor& file) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;
    const int failure = OpenRegularFile(path, kFlags, file);
    if (failure != EEXIST) return failure;
    return ::unlink(path.c_str()) == 0 ? OpenRegularFile(path, kFlags, file) : errno;
}

// What Copy has just made, or a new one.
int OpenForMore(const fs::path& path, Descriptor& file) {
    return OpenRegularFile(path, O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW, file);
}

void RequireOtherFile(const Descriptor& from, const fs::path& source, const fs::path& target) {
    struct stat left {};
    struct stat right {};
    if (::fstat(from.Get(), &left) != 0 || ::lstat(target.c_str(), &right) != 0) return;
    if (left.st_dev != right.st_dev || left.st_ino != right.st_ino) return;
    throw RuntimeError(error_number::kPermissionDenied,
                       "Can not copy " + source.string() + " onto itself");
}

void CopyContent(const fs::path& source, const fs::path& target) {
    Descriptor from;
    int failure = OpenRegularFile(source, O_RDONLY, from);
    if (failure != 0) throw ErrorFromErrno(failure, "read", source.string());
    RequireOtherFile(from, source, target);
    Descriptor to;
    failure = CreateAnew(target, to);
    if (failure != 0) throw ErrorOfCreating(failure, "write", target);
    failure = CopyAll(from.Get(), to.Get());
    if (failure == 0) failure = SyncContent(to.Get());
    if (failure == 0) failure = to.Close();
    if (failure != 0) throw ErrorFromErrno(failure, "write", target.string());
}

}  // namespace

TextFile::TextFile(TextFiles& table, fs::path path, int descriptor)
    : table_(table), path_(std::move(path)), descriptor_(descriptor) {
    table_.open_.push_back(path_);
}

TextFile::~TextFile() {
    if (!IsOpen()) return;
    WriteCollected();
    Leave();
}

void TextFile::WriteLine(std::string_view line) {
    RequireOpen();
    buffer_ += EncodeWindows1252(line);
    buffer_ += "\r\n";
    if (buffer_.size() >= kBufferSize) Flush();
}

void TextFile::WriteEncoded(std::string_view lines) {
    RequireOpen();
    if (buffer_.size() + lines.size() >= kBufferSize) Flush();
    if (lines.size() < kBufferSize) {
        buffer_ += lines;
        return;
    }
    if (const int failure = Write(lines); failure != 0) {
        throw ErrorFromErrno(failure, "write", path_.string());
    }
}

void TextFile::Close() {
    if (!IsOpen()) return;
    int failure = WriteCollected();
    if (failure == 0) failure = SyncContent(descriptor_);
    const int closeFailure = Leave();
    if (failure == 0) failure = closeFailure;
    if (failure != 0) throw ErrorFromErrno(failure, "write", path_.string());
}

void TextFile::RequireOpen() const {
    if (!IsOpen()) throw RuntimeError(kBadFileNumber, path_.string() + " is closed");
}

void TextFile::Flush() {
    RequireOpen();
    if (const int failure = WriteCollected(); failure != 0) {
        throw ErrorFromErrno(failure, "write", path_.string());
    }
}

void TextFile::Sync() {
    RequireOpen();
    int failure = WriteCollected();
    if (failure == 0) failure = SyncContent(descriptor_);
    if (failure != 0) throw ErrorFromErrno(failure, "write", path_.string());
}

int TextFile::WriteCollected() {
    std::string_view rest = buffer_;
    const int failure = Write(rest);
    // A later try goes on where this one ended, so that no byte is written twice.
    buffer_.erase(0, buffer_.size() - rest.size());
    return failure;
}

// The disk works while the next lines are made: otherwise Close would wait for all of a large file,
// which nearly doubles its time.
int TextFile::Write(std::string_view& rest) {
    sinceSync_ += rest.size();
    const int failure = WriteAll(descriptor_, rest);
    if (failure == 0 && sinceSync_ >= kSyncDistance) {
        BeginSync(descriptor_);
        sinceSync_ = 0;
    }
    return failure;
}

int TextFile::Leave() {
    std::erase(table_.open_, path_);
    return Descriptor(std::exchange(descriptor_, -1)).Close();
}

std::string EncodeLine(std::string_view line) {
    return EncodeWindows1252(line) + "\r\n";
}

std::unique_ptr<TextFile> TextFiles::OpenForOutput(std::string_view name) {
    return Open(name, CreateAnew);
}

std::unique_ptr<TextFile> TextFiles::OpenForAppend(std::string_view name) {
    return Open(name, OpenForMore);
}

std::unique_ptr<TextFile> TextFiles::Open(std::string_view name, OpenFile* open) {
    const fs::path path = CanonicalPath(name);
    RequireNotOpen(path);
    Descriptor file;
    const int failure = open(path, file);
    if (failure != 0) throw ErrorOfCreating(failure, "open", path);
    return std::unique_ptr<TextFile>(new TextFile(*this, path, file.Release()));
}

void TextFiles::Copy(std::string_view from, std::string_view to) {
    const fs::path source = CanonicalPath(from);
    const fs::path target = CanonicalPath(to);
    std::error_code ignored;
    if (!fs::is_regular_file(source, ignored)) {
        throw RuntimeError(error_number::kFileNotFound, "There is no file " + source.string());
    }
    RequireNotOpen(source);
    RequireNotOpen(target);
    CopyContent(source, target);
}

void TextFiles::RequireNotOpen(const fs::path& path) const {
    if (std::find(open_.begin(), open_.end(), path) == open_.end()) return;
    throw RuntimeError(error_number::kFileAlreadyOpen, path.string() + " is already open");
}

}  // namespace platform
