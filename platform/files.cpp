#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <system_error>
#include <utility>

#include "platform/descriptor.h"
#include "platform/error.h"
#include "platform/text.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

bool EntryExists(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

// The first entry of the folder whose name equals `part` without regard to case; else empty.
std::string EntryIgnoringCase(const fs::path& folder, std::string_view part) {
    const std::string wanted = Upper(part);
    std::string found;
    std::error_code failure;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, failure);
    for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
        std::string name = entry->path().filename().string();
        if (Upper(name) == wanted && (found.empty() || name < found)) found = std::move(name);
    }
    return found;
}

std::string SpellingOnDisk(const fs::path& folder, std::string_view part) {
    if (EntryExists(folder / part)) return std::string(part);
    // The shop's system drops blanks at the end of a file name.
    const std::string_view trimmed = TrimRight(part);
    const std::string_view name = trimmed.empty() ? part : trimmed;
    if (EntryExists(folder / name)) return std::string(name);
    std::string found = EntryIgnoringCase(folder, name);
    return found.empty() ? std::string(name) : found;
}

std::size_t NextCharacter(std::string_view text, std::size_t offset) {
    ++offset;
    while (offset < text.size() && (static_cast<unsigned char>(text[offset]) & 0xC0U) == 0x80U)
        ++offset;
    return offset;
}

// Both in upper case. After a mismatch only the last `*` takes one character more: that the earlier
// ones took as little as possible is always right.
bool MatchesOne(std::string_view name, std::string_view pattern) {
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t afterStar = std::string_view::npos;
    std::size_t starEnd = 0;
    while (n < name.size()) {
        const char wanted = p < pattern.size() ? pattern[p] : '\0';
        if (wanted == '*') {
            afterStar = ++p;
            starEnd = n;
        } else if (wanted == '?') {
            ++p;
            n = NextCharacter(name, n);
        } else if (p < pattern.size() && wanted == name[n]) {
            ++p;
            ++n;
        } else if (afterStar != std::string_view::npos) {
            p = afterStar;
            n = starEnd = NextCharacter(name, starEnd);
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

std::vector<std::string> SplitPatterns(std::string_view patterns) {
    std::vector<std::string> split;
    for (std::size_t start = 0; start <= patterns.size();) {
        const std::size_t end = std::min(patterns.find(';', start), patterns.size());
        const std::string_view pattern = Trim(patterns.substr(start, end - start));
        if (!pattern.empty()) split.push_back(Upper(pattern));
        start = end + 1;
    }
    return split;
}

bool MatchesAny(std::string_view upperName, const std::vector<std::string>& patterns) {
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const std::string& pattern) { return MatchesOne(upperName, pattern); });
}

RuntimeError NoFolder(const fs::path& folder) {
    return {error_number::kPathNotFound, "There is no folder " + folder.string()};
}

RuntimeError ErrorOfMoving(int errnoValue, const fs::path& source, const fs::path& target) {
    return ErrorOfCreating(errnoValue, "move " + source.string() + " to", target);
}

// A file system without hard links, or somebody else's file, of which the system makes none.
bool MeansNoSecondNames(int errnoValue) {
    return errnoValue == EPERM || errnoValue == EOPNOTSUPP || errnoValue == EMLINK ||
           errnoValue == ENOSYS || errnoValue == EXDEV;
}

// Who may write the file that is replaced may write the new one, as far as the system lets it.
void TakeOwnerAndModeOf(const fs::path& existing, const fs::path& file) {
    struct stat status {};
    if (::stat(existing.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    // Not through a link that somebody puts there meanwhile.
    const Descriptor taker(::open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!taker.IsOpen()) return;
    const bool isOwners = ::fchown(taker.Get(), status.st_uid, status.st_gid) == 0;
    const mode_t kept = isOwners ? 07777U : 0777U;  // no set-user-id for somebody else
    (void)::fchmod(taker.Get(), status.st_mode & kept);
}

void CopyBeside(const fs::path& source, const fs::path& target) {
    Descriptor from;
    int failure = OpenRegularFile(source, O_RDONLY, from);
    if (failure != 0) throw ErrorFromErrno(failure, "read", source.string());
    ReplacementFile file(target);
    failure = file.Create();
    if (failure == 0) failure = CopyAll(from.Get(), file.Get());
    if (failure == 0) failure = file.TakeOwnerAndMode(from.Get());
    if (failure == 0) failure = file.Commit();
    if (failure != 0) throw ErrorOfMoving(failure, source, target);
}

}  // namespace

fs::path ResolvePath(std::string_view name) {
    std::string text(name);
    std::replace(text.begin(), text.end(), '\\', '/');
    fs::path resolved = text.starts_with('/') ? "/" : "";
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('/', start), text.size());
        const std::string_view part = std::string_view(text).substr(start, end - start);
        if (!part.empty()) resolved /= SpellingOnDisk(resolved, part);
        start = end + 1;
    }
    // Kept, so that "file/" does not become the file.
    if (text.ends_with('/')) resolved /= "";
    return resolved;
}

fs::path BehindLink(fs::path path) {
    constexpr int kMostLinks = 40;  // what the system itself follows
    std::error_code failure;
    for (int link = 0; link < kMostLinks && fs::is_symlink(path, failure); ++link) {
        const fs::path target = fs::read_symlink(path, failure);
        if (failure) return path;
        path = path.parent_path() / target;  // the target alone where that is absolute
    }
    return path;
}

bool FileExists(std::string_view name) {
    std::error_code ignored;
    return fs::is_regular_file(ResolvePath(name), ignored);
}

bool MatchesPattern(std::string_view name, std::string_view patterns) {
    return MatchesAny(Upper(name), SplitPatterns(patterns));
}

std::vector<std::string> ListFiles(std::string_view folder, std::string_view patterns) {
    const std::vector<std::string> split = SplitPatterns(patterns);
    const fs::path path = folder.empty() ? fs::path(".") : ResolvePath(folder);
    std::vector<std::pair<std::string, std::string>> found;  // upper case, name
    std::error_code failure;
    fs::directory_iterator entry(path, failure);
    for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
        std::string name = entry->path().filename().string();
        std::string upper = Upper(name);
        std::error_code gone;
        if (!MatchesAny(upper, split) || !entry->is_regular_file(gone)) continue;
        found.emplace_back(std::move(upper), std::move(name));
    }
    if (failure.value() == ENOENT || failure.value() == ENOTDIR) throw NoFolder(path);
    if (failure) throw ErrorFromErrno(failure.value(), "list", path.string());
    std::sort(found.begin(), found.end());  // the order of the bytes is that of the code points
    std::vector<std::string> names;
    names.reserve(found.size());
    for (auto& [upper, name] : found)
        names.push_back(std::move(name));
    return names;
}

std::string ReadWholeFile(std::string_view name) {
    const fs::path path = ResolvePath(name);
    Descriptor file;
    std::string content;
    int failure = OpenRegularFile(path, O_RDONLY, file);
    if (failure == 0) failure = ReadAll(file.Get(), content);
    if (failure != 0) throw ErrorFromErrno(failure, "read", path.string());
    return content;
}

void WriteWholeFile(std::string_view name, std::string_view content) {
    const fs::path path = ResolvePath(name);
    ReplacementFile file(path);
    int failure = file.Create();
    if (failure == 0) failure = WriteAll(file.Get(), content);
    if (failure == 0) failure = file.Commit();
    if (failure != 0) throw ErrorOfCreating(failure, "write", path);
}

FileStamp StampFrom(const struct stat& status) {
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    return {status.st_ino, static_cast<std::uint64_t>(status.st_size),
            status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

std::optional<FileStamp> StampOf(std::string_view name) {
    struct stat status {};
    if (::stat(ResolvePath(name).c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return StampFrom(status);
}

void MoveFile(std::string_view from, std::string_view to) {
    const fs::path source = ResolvePath(from);
    const fs::path target = BehindLink(ResolvePath(to));
    struct stat status {};
    if (::stat(source.c_str(), &status) != 0) {
        throw ErrorFromErrno(errno, "move", source.string());
    }
    if (!S_ISREG(status.st_mode)) {
        throw RuntimeError(error_number::kPathAccess, source.string() + " is no file");
    }
    RequireFileOrNothing(to);
    TakeOwnerAndModeOf(target, source);
    if (::rename(source.c_str(), target.c_str()) != 0) throw ErrorOfMoving(errno, source, target);
    int failure = SyncFolderOf(target);
    if (failure == 0 && FolderOf(source) != FolderOf(target)) failure = SyncFolderOf(source);
    if (failure != 0) throw ErrorOfMoving(failure, source, target);
}

void KeepAside(std::string_view name) {
    const fs::path path = BehindLink(ResolvePath(name));
    std::error_code ignored;
    if (!fs::is_regular_file(path, ignored)) return;
    // A hard link fails where the name is taken, so that nobody's file is lost between a look and
    // the renaming.
    for (int number = 1;; ++number) {
        const fs::path aside = path.string() + "." + std::to_string(number);
        if (::linkat(AT_FDCWD, path.c_str(), AT_FDCWD, aside.c_str(), 0) == 0) return;
        if (errno == EEXIST) continue;
        if (!MeansNoSecondNames(errno)) throw ErrorOfMoving(errno, path, aside);
        if (::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, aside.c_str(), RENAME_NOREPLACE) == 0)
            return;
        if (errno != EEXIST) throw ErrorOfMoving(errno, path, aside);
    }
}

void AddName(std::string_view from, const fs::path& to) {
    const fs::path source = ResolvePath(from);
    if (::linkat(AT_FDCWD, source.c_str(), AT_FDCWD, to.c_str(), 0) != 0) {
        if (!MeansNoSecondNames(errno)) throw ErrorOfMoving(errno, source, to);
        return CopyBeside(source, to);
    }
    if (const int failure = SyncFolderOf(to); failure != 0)
        throw ErrorOfMoving(failure, source, to);
}

void DeleteFile(std::string_view name) {
    const fs::path path = ResolvePath(name);
    if (::unlink(path.c_str()) != 0) throw ErrorFromErrno(errno, "delete", path.string());
    if (const int failure = SyncFolderOf(path); failure != 0)
        throw ErrorFromErrno(failure, "delete", path.string());
}

void RequireWritableFolderOf(std::string_view name) {
    const fs::path folder = FolderOf(ResolvePath(name));
    std::error_code ignored;
    if (!fs::is_directory(folder, ignored)) throw NoFolder(folder);
    if (::access(folder.c_str(), W_OK | X_OK) != 0) {
        throw RuntimeError(error_number::kPathAccess, "Can not create files in the folder " +
                                                          fs::absolute(folder, ignored).string());
    }
}

void RequireFileOrNothing(std::string_view name) {
    std::error_code ignored;
    const fs::file_type there = fs::status(ResolvePath(name), ignored).type();
    if (there == fs::file_type::not_found || there == fs::file_type::regular) return;
    throw RuntimeError(error_number::kPathAccess,
                       "\"" + std::string(name) +
                           "\" can not be the name of a file: what is there is no regular file");
}

void RequirePlaceForFile(std::string_view name) {
    RequireFileOrNothing(name);
    const fs::path path = BehindLink(ResolvePath(name));
    if (name.empty() || path.filename().empty()) {
        throw RuntimeError(error_number::kPathAccess,
                           "\"" + std::string(name) + "\" can not be the name of a file");
    }
    RequireWritableFolderOf(path.string());
}

void ChangeDirectory(std::string_view folder) {
    const fs::path path = ResolvePath(folder);
    if (::chdir(path.c_str()) == 0) return;
    if (errno == ENOENT || errno == ENOTDIR) throw NoFolder(path);
    throw ErrorFromErrno(errno, "change to the folder", path.string());
}

}  // namespace platform
