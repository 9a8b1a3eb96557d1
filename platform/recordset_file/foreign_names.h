// Counts the names in a recordset file that its schema does not know. The parser keeps every name
// until the end of the file, so a file with new ones in every row would take memory without bound.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>

namespace platform::recordset_file {

class ForeignNames {
  public:
    // A name of an element or an attribute. Error 321, without a place, where there are too many
    // or they are too long: thousands, where an honest file has dozens.
    void Note(std::string_view name) { Note(name, kCostOfName); }

    // Each prefix lets the parser keep every other name once more.
    void NotePrefix(std::string_view prefix) { Note(prefix, kCostOfPrefix); }

  private:
    static constexpr std::size_t kRoom = std::size_t{1024} * 1024;  // for names and their costs
    static constexpr std::size_t kCostOfName = 256;
    static constexpr std::size_t kCostOfPrefix = std::size_t{8} * 1024;

    void Note(std::string_view name, std::size_t cost);

    std::unordered_set<std::string> names_;
    std::size_t taken_ = 0;
};

}  // namespace platform::recordset_file
