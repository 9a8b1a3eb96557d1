#include "platform/profile_text.h"

#include <algorithm>
#include <utility>

#include "platform/code_page.h"
#include "platform/text.h"

namespace platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kQuotes = "\"'";

// An empty result still lies inside `text`, so that its place is known.
std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    if (first == text.size()) return text.substr(0, 0);
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

bool HasQuotesAround(std::string_view text) {
    return text.size() >= 2 && text.front() == text.back() &&
           kQuotes.find(text.front()) != std::string_view::npos;
}

std::string Quoted(std::string_view value) {
    if (WithoutBlanks(value) == value && !HasQuotesAround(value)) return std::string(value);
    return "\"" + std::string(value) + "\"";
}

std::string ComparedName(std::string_view bytes) {
    return Upper(DecodeWindows1252(WithoutBlanks(bytes)));
}

}  // namespace

ProfileText::ProfileText(std::string content) : content_(std::move(content)) {
    const std::string_view bytes = content_;
    const std::size_t firstEnd = bytes.find('\n');
    const bool endsPlain =
        firstEnd != std::string_view::npos && (firstEnd == 0 || bytes[firstEnd - 1] != '\r');
    lineEnd_ = endsPlain ? "\n" : "\r\n";
    std::size_t begin = bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    while (begin < bytes.size()) {
        const std::size_t newLine = std::min(bytes.find('\n', begin), bytes.size());
        std::string_view text = bytes.substr(begin, newLine - begin);
        if (text.ends_with('\r')) text.remove_suffix(1);
        Line line = Classified(WithoutBlanks(text));
        line.begin = begin;
        line.end = std::min(newLine + 1, bytes.size());
        lines_.push_back(line);
        begin = line.end;
    }
}

ProfileText::Line ProfileText::Classified(std::string_view text) {
    Line line;
    if (text.empty() || text.front() == ';') return line;
    if (text.front() == '[') {
        line.kind = Kind::Header;
        line.name = WithoutBlanks(text.substr(1, text.find(']') - 1));
        return line;
    }
    line.kind = Kind::Entry;
    const std::size_t equals = std::min(text.find('='), text.size());
    line.name = WithoutBlanks(text.substr(0, equals));
    if (equals < text.size()) line.value = WithoutBlanks(text.substr(equals + 1));
    return line;
}

std::optional<ProfileText::Section> ProfileText::Find(std::string_view name) const {
    const std::string wanted = Upper(WithoutBlanks(name));
    const auto isHeader = [](const Line& line) { return line.kind == Kind::Header; };
    const auto header = std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) {
        return isHeader(line) && ComparedName(line.name) == wanted;
    });
    if (header == lines_.end()) return std::nullopt;
    const auto end = std::find_if(header + 1, lines_.end(), isHeader);
    return Section{static_cast<std::size_t>(header - lines_.begin()),
                   static_cast<std::size_t>(end - lines_.begin())};
}

const ProfileText::Line* ProfileText::FindEntry(const Section& section,
                                                std::string_view key) const {
    const std::string wanted = Upper(WithoutBlanks(key));
    for (std::size_t i = section.header + 1; i < section.end; ++i) {
        if (lines_[i].value && ComparedName(lines_[i].name) == wanted) return &lines_[i];
    }
    return nullptr;
}

std::optional<std::string> ProfileText::Value(std::string_view section,
                                              std::string_view key) const {
    const std::optional<Section> found = Find(section);
    const Line* const line = found ? FindEntry(*found, key) : nullptr;
    if (line == nullptr) return std::nullopt;
    std::string_view value = *line->value;
    if (HasQuotesAround(value)) value = value.substr(1, value.size() - 2);
    return DecodeWindows1252(value);
}

std::optional<std::string> ProfileText::Entries(std::string_view section) const {
    const std::optional<Section> found = Find(section);
    if (!found) return std::nullopt;
    std::string entries;
    for (std::size_t i = found->header + 1; i < found->end; ++i) {
        const Line& line = lines_[i];
        if (line.kind != Kind::Entry) continue;
        entries += DecodeWindows1252(line.name);
        if (line.value) entries += "=" + DecodeWindows1252(*line.value);
        entries += '\0';
    }
    return entries;
}

std::string ProfileText::SectionNames() const {
    std::string names;
    for (const Line& line : lines_) {
        if (line.kind == Kind::Header) names += DecodeWindows1252(line.name) + '\0';
    }
    return names;
}

std::string ProfileText::WithValue(std::string_view section, std::string_view key,
                                   std::string_view value) const {
    const std::string bytes = Quoted(EncodeWindows1252(value));
    const std::string line =
        EncodeWindows1252(WithoutBlanks(key)) + "=" + bytes + std::string(lineEnd_);
    const std::optional<Section> found = Find(section);
    if (!found) {
        const std::string header = "[" + EncodeWindows1252(WithoutBlanks(section)) + "]";
        return InsertedAt(content_.size(), header + std::string(lineEnd_) + line);
    }
    if (const Line* const entry = FindEntry(*found, key); entry != nullptr) {
        const auto offset = static_cast<std::size_t>(entry->value->data() - content_.data());
        return std::string(content_).replace(offset, entry->value->size(), bytes);
    }
    // Behind the last entry, not the last line: what follows it leads to the next section.
    std::size_t last = found->end - 1;
    while (lines_[last].kind == Kind::Other)
        --last;
    return InsertedAt(lines_[last].end, line);
}

std::string ProfileText::WithEntries(std::string_view section, std::string_view entries) const {
    const std::string lines = EntryLines(entries);
    const std::optional<Section> found = Find(section);
    if (!found) {
        const std::string header = "[" + EncodeWindows1252(WithoutBlanks(section)) + "]";
        return InsertedAt(content_.size(), header + std::string(lineEnd_) + lines);
    }
    const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(found->header) + 1;
    const auto end = lines_.begin() + static_cast<std::ptrdiff_t>(found->end);
    const auto isEntry = [](const Line& line) { return line.kind == Kind::Entry; };
    const auto firstEntry = std::find_if(first, end, isEntry);
    std::string changed =
        InsertedAt(firstEntry != end ? firstEntry->begin : lines_[found->header].end, lines);
    const std::size_t added = changed.size() - content_.size();
    for (auto line = end; line != first;) {
        --line;
        if (isEntry(*line)) changed.erase(line->begin + added, line->end - line->begin);
    }
    return changed;
}

std::string ProfileText::EntryLines(std::string_view entries) const {
    std::string lines;
    while (!entries.empty() && entries.front() != '\0') {
        const std::size_t end = std::min(entries.find('\0'), entries.size());
        lines += EncodeWindows1252(entries.substr(0, end));
        lines += lineEnd_;
        entries.remove_prefix(std::min(end + 1, entries.size()));
    }
    return lines;
}

std::string ProfileText::InsertedAt(std::size_t offset, std::string_view lines) const {
    const std::string_view before = std::string_view(content_).substr(0, offset);
    const std::string_view after = std::string_view(content_).substr(offset);
    const bool isLineStart =
        before.empty() || before == kByteOrderMark || before.ends_with('\n') || lines.empty();
    // A line that breaks off inside its end gets only the rest of it: a second CR would be content.
    const std::string_view lineEnd = before.ends_with('\r') ? "\n" : lineEnd_;
    return std::string(before).append(isLineStart ? "" : lineEnd).append(lines).append(after);
}

}  // namespace platform
