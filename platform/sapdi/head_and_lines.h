// The content of a document or journal entry: its head, its lines, and the number that the company
// gives it. Knows no rules, and nothing of how a company is reached.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sapdi/business_objects.h"
#include "platform/value.h"

namespace platform::sapdi {

using Row = std::vector<Value>;  // a value for each column, null where none was set

// The names under which the content is rendered: those of the company's tables and columns.
struct HeadAndLinesNames {
    ObjectType type;
    std::string_view head;
    std::string_view lines;
    std::span<const std::string_view> headColumns;  // the number is the last
    std::span<const std::string_view> lineColumns;
};

class HeadAndLines {
  public:
    // A head without values and one line without values, which is current. The names outlive it.
    explicit HeadAndLines(const HeadAndLinesNames& names);

    [[nodiscard]] const HeadAndLinesNames& Names() const { return names_; }
    [[nodiscard]] Row& Head() { return head_; }
    [[nodiscard]] const Row& Head() const { return head_; }
    [[nodiscard]] Row& CurrentLine() { return lines_[currentLine_]; }
    [[nodiscard]] const Row& CurrentLine() const { return lines_[currentLine_]; }
    [[nodiscard]] const std::vector<Row>& Lines() const { return lines_; }

    void AddLine();                           // and makes it current
    void SetCurrentLine(std::int32_t place);  // from 0; error 9 where there is none

    // What was loaded takes the place of the content; without lines there is an empty one.
    void Replace(Row head, std::vector<Row> lines);

    [[nodiscard]] std::int32_t Number() const;  // 0 before it is added
    void SetNumber(std::int32_t number);

    [[nodiscard]] std::string ToXml() const;

  private:
    const HeadAndLinesNames& names_;
    Row head_;
    std::vector<Row> lines_;
    std::size_t currentLine_ = 0;
};

}  // namespace platform::sapdi
