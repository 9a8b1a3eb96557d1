// What a day is written in: texts in UTF-8 with plain line ends, and tables with cells parted by
// `|`, the names of their columns in the first line.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/code_page.h"
#include "platform/norwegian.h"
#include "platform/text.h"
#include "platform/value.h"

namespace days {

inline std::string ReadBytes(const std::filesystem::path& file) {
    std::ifstream bytes(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(bytes), {}};
}

// Windows-1252 with CR LF behind each line, as the system's own files are.
inline std::string InSystemsForm(std::string_view text) {
    std::string lines;
    for (const char c : text)
        lines += c == '\n' ? "\r\n" : std::string(1, c);
    return platform::EncodeWindows1252(lines);
}

// The other way, with nothing lost: a line feed alone reads "<LF>".
inline std::string InReadingForm(std::string_view bytes) {
    std::string text;
    for (const char c : platform::DecodeWindows1252(bytes)) {
        const bool endsLine = c == '\n' && text.ends_with('\r');
        if (endsLine) text.pop_back();
        text += c == '\n' && !endsLine ? "<LF>\n" : std::string(1, c);
    }
    return text;
}

// The filled cells of a line by their columns: texts, and null for `-`.
using Row = std::map<std::string, platform::Value>;

// The value of a column; null where the row has none.
inline platform::Value In(const Row& row, const std::string& column) {
    const auto found = row.find(column);
    return found == row.end() ? platform::Value() : found->second;
}

inline std::string TextIn(const Row& row, const std::string& column) {
    return platform::ToText(In(row, column));
}

struct Table {
    std::string key;  // its first column
    std::vector<Row> rows;
};

inline std::vector<std::string> CellsOf(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream rest(line + "|");
    for (std::string cell; std::getline(rest, cell, '|');)
        cells.emplace_back(platform::Trim(cell));
    return cells;
}

// A value that begins or ends with a blank stands in quotation marks.
inline platform::Value ValueOf(const std::string& cell) {
    if (cell == "-") return {};
    const bool isQuoted = cell.size() > 1 && cell.front() == '"' && cell.back() == '"';
    return isQuoted ? cell.substr(1, cell.size() - 2) : cell;
}

// Empty where there is no such file. A line with too few or too many cells is an exception that
// names file and line.
inline Table ReadTable(const std::filesystem::path& file) {
    std::ifstream text(file);
    std::string line;
    std::getline(text, line);
    const std::vector<std::string> columns = CellsOf(line);
    Table table{columns.front(), {}};
    while (std::getline(text, line)) {
        const std::vector<std::string> cells = CellsOf(line);
        Row& row = table.rows.emplace_back();
        if (cells.size() != columns.size()) {
            throw std::runtime_error(file.string() + ":" + std::to_string(table.rows.size() + 1) +
                                     ": not as many cells as columns");
        }
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (!cells[i].empty()) row[columns[i]] = ValueOf(cells[i]);
    }
    return table;
}

// The row with what it lacks from the rows of `usual`: from that of the same key, then from the one
// whose key is null.
inline Row Completed(Row row, const Table& usual) {
    for (const platform::Value& key : {In(row, usual.key), platform::Value()}) {
        for (const Row& each : usual.rows)
            if (In(each, usual.key) == key) row.insert(each.begin(), each.end());
    }
    return row;
}

}  // namespace days
