// The file system as the system's routines see it: `\` separates like `/`, and names are found
// without regard to case. All functions are relative to the current directory and throw
// RuntimeError (53, 61, 70, 75, 76) with the path in the description.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The path that a name of a profile file or a routine means: every `\` a separator, every part of
// it that exists in another spelling of case taken as it stands on disk (the exact spelling first).
// Parts that do not exist stay as given, without blanks at their end. The result may name nothing.
[[nodiscard]] std::filesystem::path ResolvePath(std::string_view name);

// What a link means, also where there is nothing yet; any other path itself. Only the last part of
// a path is looked at: folders may be links.
[[nodiscard]] std::filesystem::path BehindLink(std::filesystem::path path);

[[nodiscard]] bool FileExists(std::string_view name);  // a regular file

// Whether `name` matches one of the patterns (`*` any run, `?` one character, several separated by
// `;`), without regard to case. An empty pattern matches nothing.
[[nodiscard]] bool MatchesPattern(std::string_view name, std::string_view patterns);

// The names of the files (not folders) in `folder` that match, by their upper-cased code points.
// Names come as the bytes on disk, also where those are no UTF-8.
[[nodiscard]] std::vector<std::string> ListFiles(std::string_view folder,
                                                 std::string_view patterns);

[[nodiscard]] std::string ReadWholeFile(std::string_view name);

// Writes a file beside its place and puts it there in one step, on disk.
void WriteWholeFile(std::string_view name, std::string_view content);

// What tells a file from a later one of the same name; another name does not change it.
struct FileStamp {
    std::uint64_t number = 0;   // in its file system
    std::uint64_t size = 0;     // bytes
    std::int64_t modified = 0;  // nanoseconds since 1970

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

[[nodiscard]] FileStamp StampFrom(const struct stat& status);

// Nothing where there is no regular file of that name.
[[nodiscard]] std::optional<FileStamp> StampOf(std::string_view name);

// Gives the file `from` the name `to` in one step; an existing file of that name is replaced, and
// its owner and mode are taken over; a link of that name stays and the file behind it is replaced.
// What is there and no regular file is error 75. Both lie on one file system.
void MoveFile(std::string_view from, std::string_view to);

// Gives a file of that name, where there is one, a second name: `name` + ".1", or the first number
// that is free. So it outlives whatever takes its place. Error 75 where it can not be kept.
void KeepAside(std::string_view name);

// Gives the file `from` the name `to` beside its own, in exactly this spelling; on disk. Where the
// file system knows no second names, `to` is a copy. Error 75 where there is something already.
void AddName(std::string_view from, const std::filesystem::path& to);

void DeleteFile(std::string_view name);  // for good, also on disk; 53 where there is none

// Error 75 (76 for a missing folder) unless files can be created in the folder that holds `name`.
void RequireWritableFolderOf(std::string_view name);

// Error 75 where that name, itself or through a link, is a device's, a FIFO's or a folder's: a
// renaming would put a file in the place of the first two.
void RequireFileOrNothing(std::string_view name);

// Error 75 unless a file of that name can be put in place: the name is empty, something other than
// a file's, or files can not be created beside it (76 where their folder is missing).
void RequirePlaceForFile(std::string_view name);

void ChangeDirectory(std::string_view folder);  // 76 where there is none

}  // namespace platform
