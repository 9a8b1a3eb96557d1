#include "platform/database/sql_text.h"

#include <algorithm>
#include <initializer_list>
#include <optional>

#include "platform/database/sql_token.h"
#include "platform/database/sqlite_functions.h"

namespace platform::database {
namespace {

using Tokens = std::vector<SqlToken>;

struct TextEdit {
    std::size_t offset = 0;
    std::size_t erased = 0;
    std::string inserted;
};

std::string Edited(std::string_view sql, std::vector<TextEdit> edits) {
    std::ranges::stable_sort(edits, {}, &TextEdit::offset);
    std::string text;
    std::size_t taken = 0;
    for (const TextEdit& edit : edits) {
        text.append(sql, taken, edit.offset - taken).append(edit.inserted);
        taken = edit.offset + edit.erased;
    }
    return text.append(sql, taken);
}

bool IsAnyOf(const SqlToken& token, std::initializer_list<std::string_view> words) {
    return std::ranges::any_of(words, [&](std::string_view word) { return token.Is(word); });
}

bool IsComparison(const SqlToken& token) {
    return IsAnyOf(token, {"=", "==", "<>", "!=", "<", "<=", ">", ">=", "BETWEEN", "AND"});
}

// The place of the first token from `from` on that is one of the words outside all brackets; the
// number of tokens where there is none.
std::size_t FindOuter(const Tokens& tokens, std::size_t from,
                      std::initializer_list<std::string_view> words) {
    while (from < tokens.size() && (tokens[from].depth > 0 || !IsAnyOf(tokens[from], words)))
        ++from;
    return from;
}

std::size_t EndOfTokenBefore(const Tokens& tokens, std::size_t place) {
    return tokens[place - 1].End();
}

// `x IN ('a', 'b')` compares by the collation of its left side.
std::optional<TextEdit> CollatedList(const Tokens& tokens, std::size_t place) {
    if (!tokens[place].Is("IN") || place == 0 || place + 2 >= tokens.size()) return std::nullopt;
    if (tokens[place + 2].kind != SqlTokenKind::Text) return std::nullopt;
    const std::size_t before = tokens[place - 1].Is("NOT") ? place - 1 : place;
    if (before == 0) return std::nullopt;
    return TextEdit{EndOfTokenBefore(tokens, before), 0, " COLLATE " + std::string(kTextCollation)};
}

void CollateTexts(const Tokens& tokens, std::vector<TextEdit>& edits) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (auto edit = CollatedList(tokens, i)) edits.push_back(*std::move(edit));
        if (tokens[i].kind != SqlTokenKind::Text) continue;
        const bool compared = (i > 0 && IsComparison(tokens[i - 1])) ||
                              (i + 1 < tokens.size() && IsComparison(tokens[i + 1]));
        if (compared) edits.push_back({tokens[i].End(), 0, CollationFor(tokens[i].text)});
    }
}

// Groups come out in their order as a rule, but only an ORDER BY promises it.
void OrderGroups(std::string_view sql, const Tokens& tokens, std::vector<TextEdit>& edits) {
    const std::size_t group = FindOuter(tokens, 0, {"GROUP"});
    if (group + 2 >= tokens.size() || !tokens[group + 1].Is("BY")) return;
    const auto rest = FindOuter(tokens, group, {"ORDER", "UNION", "EXCEPT", "INTERSECT"});
    if (rest < tokens.size()) return;

    const std::size_t listEnd = FindOuter(tokens, group, {"HAVING", "WINDOW", "LIMIT", ";"});
    const std::size_t orderPlace = FindOuter(tokens, group, {"LIMIT", ";"});
    const std::size_t start = tokens[group + 2].offset;
    const auto list = sql.substr(start, EndOfTokenBefore(tokens, listEnd) - start);
    edits.push_back({EndOfTokenBefore(tokens, orderPlace), 0, " ORDER BY " + std::string(list)});
}

bool IsChangeOrQuery(const SqlToken& first) {
    return IsAnyOf(first, {"SELECT", "DELETE", "UPDATE", "INSERT", "REPLACE", "WITH"});
}

std::string Unquoted(std::string_view name) {
    std::string plain(name.substr(1, name.size() - 2));
    const std::string doubled(2, name.front());
    for (std::size_t at = 0; (at = plain.find(doubled, at)) != std::string::npos; ++at) {
        plain.erase(at, 1);
    }
    return plain;
}

std::string Joined(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) {
        list.append(list.empty() ? "" : ", ").append(QuotedName(name));
    }
    return list;
}

}  // namespace

std::string QuotedName(std::string_view name) {
    std::string quoted = "\"";
    for (const char character : name) {
        if (character == '"') quoted += '"';
        quoted += character;
    }
    return quoted += '"';
}

std::string CollationFor(std::string_view text) {
    const bool ascii =
        std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return " COLLATE " + std::string(ascii ? std::string_view("NOCASE") : kTextCollation);
}

std::string ToEngineDialect(std::string_view sql) {
    const Tokens tokens = SqlTokens(sql);
    // A literal of CREATE TABLE would pass its collation to the column.
    if (tokens.empty() || !IsChangeOrQuery(tokens.front())) return std::string(sql);
    std::vector<TextEdit> edits;
    if (tokens.size() > 1 && tokens[0].Is("DELETE") && tokens[1].Is("*")) {
        edits.push_back({tokens[1].offset, 1, ""});
    }
    CollateTexts(tokens, edits);
    OrderGroups(sql, tokens, edits);
    return Edited(sql, std::move(edits));
}

std::string WholeTableOf(std::string_view sql) {
    const Tokens tokens = SqlTokens(sql);
    constexpr std::size_t kTable = 3;
    if (tokens.size() <= kTable) return {};
    if (!tokens[0].Is("SELECT") || !tokens[1].Is("*") || !tokens[2].Is("FROM")) return {};

    const bool ends = tokens.size() == kTable + 1;
    if (!ends && !IsAnyOf(tokens[kTable + 1], {"WHERE", "ORDER", ";"})) return {};
    const auto other = FindOuter(tokens, kTable, {"GROUP", "UNION", "EXCEPT", "INTERSECT"});
    if (other < tokens.size()) return {};

    const SqlToken& table = tokens[kTable];
    if (table.kind == SqlTokenKind::Word) return std::string(table.text);
    return table.kind == SqlTokenKind::QuotedName ? Unquoted(table.text) : std::string();
}

std::string WithRowKey(std::string_view sql, const std::vector<std::string>& rowKey) {
    const Tokens tokens = SqlTokens(sql);
    const std::string key = Joined(rowKey);
    const bool ordered = FindOuter(tokens, 0, {"ORDER"}) < tokens.size();
    const std::size_t orderPlace = FindOuter(tokens, 0, {"LIMIT", ";"});
    return Edited(
        sql, {{tokens[1].End(), 0, ", " + key},
              {EndOfTokenBefore(tokens, orderPlace), 0, (ordered ? ", " : " ORDER BY ") + key}});
}

}  // namespace platform::database
