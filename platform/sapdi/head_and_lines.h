// A document or journal entry on its way to or from its two tables: the columns of the head, the
// lines, and the number that the company gives it. Knows no rules.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sapdi/company_session.h"
#include "platform/value.h"

namespace platform::sapdi {

struct HeadAndLinesTables {
    ObjectType type;
    std::string_view head;
    std::string_view lines;
    std::string_view key;         // of the head; the lines name their head by it
    std::string_view number;      // the last of the head's columns; equal to the key
    std::string_view lineNumber;  // from 0
    std::span<const std::string_view> headColumns;
    std::span<const std::string_view> lineColumns;
};

class HeadAndLines {
  public:
    // A head without values and one line without values, which is current.
    explicit HeadAndLines(const HeadAndLinesTables& tables);

    [[nodiscard]] Value& Head(std::size_t column) { return head_[column]; }
    [[nodiscard]] const Value& Head(std::size_t column) const { return head_[column]; }
    [[nodiscard]] Row& CurrentLine() { return lines_[currentLine_]; }
    [[nodiscard]] const Row& CurrentLine() const { return lines_[currentLine_]; }
    [[nodiscard]] const std::vector<Row>& Lines() const { return lines_; }

    void AddLine();                           // and makes it current
    void SetCurrentLine(std::int32_t place);  // error 9 where there is none

    // Saves the head and its first `lineCount` lines and gives the key; the number is the same.
    [[nodiscard]] std::int32_t Insert(CompanySession& session, std::size_t lineCount) const;

    // False, with the content as it was, where there is no head of that key.
    bool Load(CompanySession& session, std::int32_t key);

    [[nodiscard]] std::int32_t Number() const;  // 0 before it is saved
    void SetNumber(std::int32_t number);

    [[nodiscard]] std::string ToXml() const;

  private:
    const HeadAndLinesTables& tables_;
    Row head_;
    std::vector<Row> lines_;
    std::size_t currentLine_ = 0;
};

// The text of a value, empty where it is none.
[[nodiscard]] std::string_view TextOf(const Value& value);

// Dates as the tables have them, YYYY-MM-DD; a value that is no such text is the date of an unset
// DateTime.
[[nodiscard]] std::string IsoDate(const DateTime& date);
[[nodiscard]] DateTime DateOf(const Value& isoDate);

}  // namespace platform::sapdi
