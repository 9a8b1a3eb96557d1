// Profile files. The first three lines of the input are section, key and value to be set, what
// follows is the file.

#include "platform/profile_text.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/profile_file.h"
#include "platform/text.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/support/platform/temp_folder.h"

using namespace platform;
using fuzz::Require;

namespace {

using Lines = std::vector<std::string>;

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

// With their ends, so that nothing of a file is in no line.
Lines LinesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(" \t") + 1);
}

bool IsOneLine(std::string_view text) {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

// What the file's code page can hold, in one line.
bool IsWritable(std::string_view text) {
    return IsOneLine(text) && DecodeWindows1252(EncodeWindows1252(text)) == text;
}

// What comes back as that name: nothing in it ends it, or makes the line another kind of line.
bool IsSection(std::string_view name) {
    return IsWritable(name) && name.find(']') == std::string_view::npos;
}

bool IsKey(std::string_view name) {
    const std::string_view key = WithoutBlanks(name);
    return IsWritable(name) && key.find('=') == std::string_view::npos && !key.starts_with(';') &&
           !key.starts_with('[');
}

bool IsEntry(std::string_view text) {
    return IsWritable(text) && !text.empty() && WithoutBlanks(text) == text &&
           !text.starts_with(';') && !text.starts_with('[') && !text.starts_with('=');
}

std::vector<std::string> ListOf(std::string_view list) {
    std::vector<std::string> items;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find('\0'), list.size());
        items.emplace_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return items;
}

// An entry as a section gives it: without blanks around its key and its value.
std::string EntryRead(std::string_view entry) {
    const std::size_t equals = entry.find('=');
    std::string read(WithoutBlanks(entry.substr(0, equals)));
    if (equals == std::string_view::npos) return read;
    return read.append("=").append(WithoutBlanks(entry.substr(equals + 1)));
}

std::string_view WithoutMark(std::string_view content) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    return content.substr(content.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
}

// All lines stay but one, in whose place, or between two of them, there are others.
void CheckOtherLines(std::string_view before, std::string_view after) {
    const std::string_view rest = WithoutMark(before);
    const std::string_view mark = before.substr(0, before.size() - rest.size());
    Require(after.starts_with(mark), "the byte order mark stays in front");
    const Lines old = LinesOf(rest);
    const Lines changed = LinesOf(after.substr(mark.size()));
    const std::size_t shorter = std::min(old.size(), changed.size());
    std::size_t front = 0;
    while (front < shorter && old[front] == changed[front])
        ++front;
    std::size_t back = 0;
    while (back < shorter - front &&
           old[old.size() - 1 - back] == changed[changed.size() - 1 - back])
        ++back;
    const std::size_t gone = old.size() - front - back;
    const std::size_t added = changed.size() - front - back;
    if (gone == 0) {
        Require(added <= 2, "at most a section and an entry are added");
        return;
    }
    Require(gone == 1, "all other lines stay");
    const std::string& line = old[front];
    if (added == 1) return;
    // The last line had no end, and got one.
    Require(back == 0 && !line.ends_with('\n') && changed[front].starts_with(line) &&
                (changed[front].substr(line.size()) == "\n" ||
                 changed[front].substr(line.size()) == "\r\n") &&
                added <= 3,
            "the last line is only ended");
}

void CheckOtherSections(const ProfileText& before, const ProfileText& after,
                        std::string_view section) {
    const std::string wanted = Upper(WithoutBlanks(section));
    for (const std::string& name : ListOf(before.SectionNames())) {
        if (Upper(WithoutBlanks(name)) == wanted) continue;
        Require(before.Entries(name) == after.Entries(name), "other sections stay");
    }
}

void CheckOtherEntries(const ProfileText& before, const ProfileText& after,
                       std::string_view section, std::string_view key) {
    const std::optional<std::string> entries = before.Entries(section);
    const std::string wanted = Upper(WithoutBlanks(key));
    for (const std::string& entry : ListOf(entries.value_or(""))) {
        const std::string name = entry.substr(0, entry.find('='));
        if (Upper(WithoutBlanks(name)) == wanted) continue;
        Require(before.Value(section, name) == after.Value(section, name), "other entries stay");
    }
}

void CheckSetting(const std::string& content, std::string_view section, std::string_view key,
                  std::string_view value) {
    if (!IsSection(section) || !IsKey(key) || !IsWritable(value)) return;
    const ProfileText before(content);
    const std::string changed = before.WithValue(section, key, value);
    const ProfileText after(changed);
    Require(after.Value(section, key) == value, "what is set is read back");
    Require(after.WithValue(section, key, value) == changed, "setting it again changes nothing");
    CheckOtherLines(content, changed);
    CheckOtherSections(before, after, section);
    CheckOtherEntries(before, after, section, key);
}

std::string_view WithoutEnd(std::string_view line) {
    for (const char mark : {'\n', '\r'}) {
        if (line.ends_with(mark)) line.remove_suffix(1);
    }
    return line;
}

bool IsNoEntry(std::string_view line) {
    const std::string_view text = WithoutBlanks(WithoutEnd(line));
    return text.empty() || text.starts_with(';') || text.starts_with('[');
}

// The lines that are no entries, without their ends.
Lines OtherLines(std::string_view content) {
    Lines others;
    for (const std::string& line : LinesOf(WithoutMark(content))) {
        if (IsNoEntry(line)) others.emplace_back(WithoutEnd(line));
    }
    return others;
}

void CheckReplacing(const std::string& content, std::string_view section, std::string_view first,
                    std::string_view second) {
    if (!IsSection(section) || !IsEntry(first) || !IsEntry(second)) return;
    const ProfileText before(content);
    const std::string entries = std::string(first) + '\0' + std::string(second) + '\0';
    const std::string changed = before.WithEntries(section, entries);
    const ProfileText after(changed);
    Require(ListOf(after.Entries(section).value_or("")) ==
                std::vector{EntryRead(first), EntryRead(second)},
            "a section has the entries that it is given");
    CheckOtherSections(before, after, section);
    const Lines others = OtherLines(content);
    Lines othersAfter = OtherLines(changed);
    if (!before.Entries(section)) othersAfter.pop_back();
    Require(others == othersAfter, "comments and sections stay");
}

// Through the file the answers are those of the text, cut to the buffer.
void CheckFile(const std::string& content, std::string_view section, std::string_view key,
               std::string_view value) {
    static const support::TempFolder folder;
    folder.Write("kv.ini", content);
    const std::string file = folder.File("kv.ini");
    const ProfileText text(content);
    ProfileFiles profile;
    std::string buffer;
    for (const int size : {1, 2, 9}) {
        const auto room = static_cast<std::size_t>(size - 1);
        const int count = profile.GetString(section, key, "standard", buffer, size, file);
        Require(buffer == Left(text.Value(section, key).value_or("standard"), room),
                "a value is cut to its buffer");
        Require(static_cast<std::size_t>(count) == Length(buffer), "its characters are counted");
        profile.GetSection(section, buffer, size, file);
        Require(Length(buffer) <= room, "a list fits its buffer");
        profile.GetSectionNames(buffer, size, file);
        Require(Length(buffer) <= room, "a list of names fits its buffer");
    }
    const bool isWritten = profile.WriteString(section, key, value, file);
    Require(isWritten == (IsOneLine(section) && IsOneLine(key) && IsOneLine(value)),
            "what is one line each is written, and nothing else");
    const std::string expected = isWritten ? text.WithValue(section, key, value) : content;
    Require(folder.Read("kv.ini") == expected, "the file is changed wholly or not at all");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest = fuzz::TextOf(data, size);
    const std::string_view section = TakeLine(rest);
    const std::string_view key = TakeLine(rest);
    const std::string_view value = TakeLine(rest);
    const std::string content(rest);
    CheckSetting(content, section, key, value);
    CheckReplacing(content, section, key, value);
    CheckFile(content, section, key, value);
    return 0;
}
