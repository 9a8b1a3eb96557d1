#include "platform/profile_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/descriptor.h"
#include "platform/files.h"
#include "platform/profile_text.h"
#include "platform/text.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr int kSuccess = 0;
constexpr int kNotFound = 2;
constexpr int kPathNotFound = 3;
constexpr int kAccessDenied = 5;
constexpr int kGeneralFailure = 31;
constexpr int kDiskFull = 112;

struct Message {
    int code;
    std::string_view text;
};

constexpr std::array kMessages = {
    Message{kSuccess, "The operation completed successfully."},
    Message{kNotFound, "The system cannot find the file specified."},
    Message{kPathNotFound, "The system cannot find the path specified."},
    Message{kAccessDenied, "Access is denied."},
    Message{kGeneralFailure, "A device attached to the system is not functioning."},
    Message{kDiskFull, "There is not enough space on the disk."}};

int CodeOfErrno(int errnoValue, const fs::path& path) {
    std::error_code ignored;
    switch (errnoValue) {
        case 0:
            return kSuccess;
        case ENOENT:
            return fs::is_directory(FolderOf(path), ignored) ? kNotFound : kPathNotFound;
        case ENOTDIR:
            return kPathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return kAccessDenied;
        case ENOSPC:
        case EDQUOT:
            return kDiskFull;
        default:
            return kGeneralFailure;
    }
}

// An errno value; `file` stays open for who wants to know more of it. What can be no profile file
// is an error: the settings of the shop would be taken for unset.
int ReadContent(const fs::path& path, Descriptor& file, std::string& content) {
    const int failure = OpenRegularFile(path, O_RDONLY, file);
    if (failure == kNoRegularFile) throw ErrorFromErrno(failure, "read", path.string());
    return failure == 0 ? ReadAll(file.Get(), content) : failure;
}

int ReplaceContent(const fs::path& path, const Descriptor& oldFile, std::string_view content) {
    ReplacementFile file(path);
    int failure = file.Create();
    if (failure == 0) failure = WriteAll(file.Get(), content);
    if (failure == 0 && oldFile.IsOpen()) failure = file.TakeOwnerAndMode(oldFile.Get());
    return failure == 0 ? file.Commit() : failure;
}

int ChangeFile(std::string_view fileName,
               const std::function<std::string(const ProfileText&)>& change) {
    fs::path path = ResolvePath(fileName);
    Descriptor file;
    std::string content;
    const int readCode = CodeOfErrno(ReadContent(path, file, content), path);
    if (readCode != kSuccess && readCode != kNotFound) return readCode;
    if (readCode == kSuccess) {
        // The new file could take the place of one that is write-protected, or of a link to it.
        if (::access(path.c_str(), W_OK) != 0) return CodeOfErrno(errno, path);
        std::error_code failure;
        fs::path real = fs::canonical(path, failure);
        if (!failure) path = std::move(real);
    }
    const std::string changed = change(ProfileText(std::move(content)));
    return CodeOfErrno(ReplaceContent(path, file, changed), path);
}

bool IsOneLine(std::string_view text) {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

int Count(std::string_view text) {
    return static_cast<int>(Length(text));
}

// A list that does not fit, with its final NUL, is cut one character earlier than a single value:
// the platform then ends it with two NULs.
int DeliverList(const std::string& list, std::string& buffer, int bufferSize) {
    const bool fits = Count(list) < bufferSize;
    buffer = fits ? list : Left(list, static_cast<std::size_t>(std::max(bufferSize - 2, 0)));
    return Count(buffer);
}

}  // namespace

int ProfileFiles::GetString(std::string_view section, std::string_view key,
                            std::string_view defaultText, std::string& buffer, int bufferSize,
                            std::string_view fileName) {
    const std::unique_ptr<ProfileText> text = Load(fileName);
    std::optional<std::string> value;
    if (text) {
        value = text->Value(section, key);
        if (!value) lastError_ = kNotFound;
    }
    buffer =
        Left(value ? *value : defaultText, static_cast<std::size_t>(std::max(bufferSize - 1, 0)));
    return Count(buffer);
}

int ProfileFiles::GetSection(std::string_view section, std::string& buffer, int bufferSize,
                             std::string_view fileName) {
    const std::unique_ptr<ProfileText> text = Load(fileName);
    std::optional<std::string> entries;
    if (text) {
        entries = text->Entries(section);
        if (!entries) lastError_ = kNotFound;
    }
    return DeliverList(entries.value_or(""), buffer, bufferSize);
}

int ProfileFiles::GetSectionNames(std::string& buffer, int bufferSize, std::string_view fileName) {
    const std::unique_ptr<ProfileText> text = Load(fileName);
    return DeliverList(text ? text->SectionNames() : "", buffer, bufferSize);
}

bool ProfileFiles::WriteString(std::string_view section, std::string_view key,
                               std::string_view value, std::string_view fileName) {
    // A line end inside would come back as other sections or entries.
    if (!IsOneLine(section) || !IsOneLine(key) || !IsOneLine(value)) {
        lastError_ = kGeneralFailure;
        return false;
    }
    lastError_ = ChangeFile(
        fileName, [&](const ProfileText& text) { return text.WithValue(section, key, value); });
    return lastError_ == kSuccess;
}

bool ProfileFiles::WriteSection(std::string_view section, std::string_view entries,
                                std::string_view fileName) {
    if (!IsOneLine(section) || entries.find_first_of("\r\n") != std::string_view::npos) {
        lastError_ = kGeneralFailure;
        return false;
    }
    lastError_ = ChangeFile(
        fileName, [&](const ProfileText& text) { return text.WithEntries(section, entries); });
    return lastError_ == kSuccess;
}

std::string ProfileFiles::MessageText(int code) const {
    const auto* const found =
        std::find_if(kMessages.begin(), kMessages.end(),
                     [&](const Message& message) { return message.code == code; });
    return found == kMessages.end() ? std::string() : std::string(found->text);
}

std::unique_ptr<ProfileText> ProfileFiles::Load(std::string_view fileName) {
    const fs::path path = ResolvePath(fileName);
    Descriptor file;
    std::string content;
    lastError_ = CodeOfErrno(ReadContent(path, file, content), path);
    if (lastError_ != kSuccess) return nullptr;
    return std::make_unique<ProfileText>(std::move(content));
}

}  // namespace platform
