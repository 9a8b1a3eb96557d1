#include "platform/sapdi/head_and_lines.h"

#include <array>
#include <utility>

#include "platform/database/sqlite_types.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/sapdi/sql_builder.h"
#include "platform/sapdi/xml_rendering.h"

namespace platform::sapdi {
namespace {

constexpr std::size_t kDateLength = 10;

std::string InsertHeadSql(const HeadAndLinesTables& tables) {
    return InsertSql(tables.head, tables.headColumns).append(" RETURNING ").append(tables.key);
}

std::string SetNumberSql(const HeadAndLinesTables& tables) {
    const std::string key(tables.key);
    return std::string("UPDATE ").append(tables.head) + " SET " + std::string(tables.number) +
           " = " + key + " WHERE " + key + " = ?1";
}

std::string InsertLineSql(const HeadAndLinesTables& tables) {
    std::vector<std::string_view> columns = {tables.key, tables.lineNumber};
    columns.insert(columns.end(), tables.lineColumns.begin(), tables.lineColumns.end());
    return InsertSql(tables.lines, columns);
}

}  // namespace

HeadAndLines::HeadAndLines(const HeadAndLinesTables& tables)
    : tables_(tables), head_(tables.headColumns.size()), lines_{Row(tables.lineColumns.size())} {}

void HeadAndLines::AddLine() {
    lines_.emplace_back(tables_.lineColumns.size());
    currentLine_ = lines_.size() - 1;
}

void HeadAndLines::SetCurrentLine(std::int32_t place) {
    if (place < 0 || static_cast<std::size_t>(place) >= lines_.size()) {
        throw RuntimeError(
            error_number::kIndexOutOfRange,
            std::string(tables_.lines) + ": there is no line " + std::to_string(place));
    }
    currentLine_ = static_cast<std::size_t>(place);
}

std::int32_t HeadAndLines::Insert(CompanySession& session, std::size_t lineCount) const {
    const Value key = session.Run(InsertHeadSql(tables_), head_).front().front();
    session.Run(SetNumberSql(tables_), {key});

    const std::string insertLine = InsertLineSql(tables_);
    Row values = {key, 0};
    for (std::size_t i = 0; i < lineCount; ++i) {
        values.resize(2);
        values[1] = static_cast<std::int64_t>(i);
        values.insert(values.end(), lines_[i].begin(), lines_[i].end());
        session.Run(insertLine, values);
    }
    return ToInt32(key);
}

bool HeadAndLines::Load(CompanySession& session, std::int32_t key) {
    std::vector<Row> heads =
        session.Run(SelectSql(tables_.head, tables_.headColumns, tables_.key), {key});
    if (heads.empty()) return false;
    std::vector<Row> lines = session.Run(SelectSql(tables_.lines, tables_.lineColumns, tables_.key)
                                             .append(" ORDER BY ")
                                             .append(tables_.lineNumber),
                                         {key});
    if (lines.empty()) lines.emplace_back(tables_.lineColumns.size());
    head_ = std::move(heads.front());
    lines_ = std::move(lines);
    currentLine_ = 0;
    return true;
}

std::int32_t HeadAndLines::Number() const {
    const std::int64_t* number = head_.back().AsWhole();
    return number == nullptr ? 0 : ToInt32(*number);
}

void HeadAndLines::SetNumber(std::int32_t number) {
    head_.back() = number;
}

std::string HeadAndLines::ToXml() const {
    const std::array<XmlTable, 2> content = {
        XmlTable{tables_.head, tables_.headColumns, std::span(&head_, 1)},
        XmlTable{tables_.lines, tables_.lineColumns, lines_}};
    return ObjectXml(tables_.type, content);
}

std::string_view TextOf(const Value& value) {
    const std::string* text = value.AsText();
    return text == nullptr ? std::string_view() : std::string_view(*text);
}

std::string IsoDate(const DateTime& date) {
    return StoredDate(date).substr(0, kDateLength);
}

DateTime DateOf(const Value& isoDate) {
    return ParseStoredDate(TextOf(isoDate).substr(0, kDateLength)).value_or(DateTime{});
}

}  // namespace platform::sapdi
