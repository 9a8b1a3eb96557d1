// The content of a profile file: its sections and entries, and the content after a change. Texts go
// in and out as UTF-8; inside are the file's own bytes. Knows nothing of files and error codes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class ProfileText {
  public:
    explicit ProfileText(std::string content);
    ProfileText(const ProfileText&) = delete;
    ProfileText& operator=(const ProfileText&) = delete;

    // The value without its enclosing quotation marks; nothing where section or key is missing.
    [[nodiscard]] std::optional<std::string> Value(std::string_view section,
                                                   std::string_view key) const;

    // The entries of a section and the names of all sections, each ended by a NUL. Quotation marks
    // stay, as the platform leaves them here too.
    [[nodiscard]] std::optional<std::string> Entries(std::string_view section) const;
    [[nodiscard]] std::string SectionNames() const;

    // The content with the value set. A value that would lose blanks or quotation marks when it is
    // read gets a pair around it.
    [[nodiscard]] std::string WithValue(std::string_view section, std::string_view key,
                                        std::string_view value) const;

    // The content with other entries in the section, written as they are given; its comments stay.
    [[nodiscard]] std::string WithEntries(std::string_view section, std::string_view entries) const;

  private:
    enum class Kind { Other, Header, Entry };
    struct Line {
        Kind kind = Kind::Other;
        std::size_t begin = 0;
        std::size_t end = 0;                    // behind the line end
        std::string_view name;                  // section or key
        std::optional<std::string_view> value;  // as it stands in the file
    };
    struct Section {
        std::size_t header;  // its line
        std::size_t end;     // the line after its last
    };

    [[nodiscard]] static Line Classified(std::string_view text);
    [[nodiscard]] std::optional<Section> Find(std::string_view name) const;
    [[nodiscard]] const Line* FindEntry(const Section& section, std::string_view key) const;
    [[nodiscard]] std::string InsertedAt(std::size_t offset, std::string_view lines) const;
    [[nodiscard]] std::string EntryLines(std::string_view entries) const;

    std::string content_;
    std::string_view lineEnd_;
    std::vector<Line> lines_;  // views into content_
};

}  // namespace platform
