#include "localcompany/head_and_lines_tables.h"

#include <string>
#include <utility>
#include <vector>

#include "localcompany/sql_builder.h"
#include "platform/norwegian.h"

namespace localcompany {

using platform::ToInt32;
using platform::Value;
using platform::sapdi::HeadAndLines;
using platform::sapdi::HeadAndLinesNames;
using platform::sapdi::Row;

namespace {

std::string InsertHeadSql(const HeadAndLinesNames& names, const KeyColumns& keys) {
    return InsertSql(names.head, names.headColumns).append(" RETURNING ").append(keys.head);
}

std::string SetNumberSql(const HeadAndLinesNames& names, const KeyColumns& keys) {
    const std::string key(keys.head);
    return std::string("UPDATE ").append(names.head) + " SET " +
           std::string(names.headColumns.back()) + " = " + key + " WHERE " + key + " = ?1";
}

std::string InsertLineSql(const HeadAndLinesNames& names, const KeyColumns& keys) {
    std::vector<std::string_view> columns = {keys.head, keys.line};
    columns.insert(columns.end(), names.lineColumns.begin(), names.lineColumns.end());
    return InsertSql(names.lines, columns);
}

std::string SelectLinesSql(const HeadAndLinesNames& names, const KeyColumns& keys) {
    return SelectSql(names.lines, names.lineColumns, keys.head)
        .append(" ORDER BY ")
        .append(keys.line);
}

}  // namespace

std::int32_t InsertHeadAndLines(CompanySession& session, const KeyColumns& keys,
                                const HeadAndLines& content, std::span<const Row> lines) {
    const HeadAndLinesNames& names = content.Names();
    const Value key = session.Run(InsertHeadSql(names, keys), content.Head()).front().front();
    // Where a real company counts by series, the number is the key here.
    session.Run(SetNumberSql(names, keys), {key});

    const std::string insertLine = InsertLineSql(names, keys);
    Row values = {key, 0};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        values.resize(2);
        values[1] = static_cast<std::int64_t>(i);
        values.insert(values.end(), lines[i].begin(), lines[i].end());
        session.Run(insertLine, values);
    }
    return ToInt32(key);
}

bool LoadHeadAndLines(CompanySession& session, const KeyColumns& keys, std::int32_t key,
                      HeadAndLines& content) {
    const HeadAndLinesNames& names = content.Names();
    std::vector<Row> heads =
        session.Run(SelectSql(names.head, names.headColumns, keys.head), {key});
    if (heads.empty()) return false;
    content.Replace(std::move(heads.front()), session.Run(SelectLinesSql(names, keys), {key}));
    return true;
}

}  // namespace localcompany
