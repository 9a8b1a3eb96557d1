#include "platform/database/sql_token.h"

#include <algorithm>

#include "platform/text.h"

namespace platform::database {
namespace {

bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsWordCharacter(char c) {
    return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '$' ||
           static_cast<unsigned char>(c) >= 0x80;
}

std::size_t EndAfter(std::string_view sql, std::string_view closing, std::size_t from) {
    const std::size_t found = sql.find(closing, from);
    return found == std::string_view::npos ? sql.size() : found + closing.size();
}

// A quoted run; the quotation mark inside it stands twice.
std::size_t QuotedEnd(std::string_view sql, std::size_t start) {
    const char quote = sql[start];
    std::size_t end = EndAfter(sql, std::string_view(&quote, 1), start + 1);
    while (end < sql.size() && sql[end] == quote) {
        end = EndAfter(sql, std::string_view(&quote, 1), end + 1);
    }
    return end;
}

std::size_t RunEnd(std::string_view sql, std::size_t start, bool (*belongs)(char)) {
    const auto run = sql.substr(start);
    return start + static_cast<std::size_t>(std::ranges::find_if_not(run, belongs) - run.begin());
}

// Where the blank or comment at `start` ends; `start` itself where there is none.
std::size_t SkippedEnd(std::string_view sql, std::size_t start) {
    if (IsBlank(sql[start])) return RunEnd(sql, start, IsBlank);
    if (sql.substr(start).starts_with("--")) return EndAfter(sql, "\n", start);
    if (sql.substr(start).starts_with("/*")) return EndAfter(sql, "*/", start + 2);
    return start;
}

std::size_t SymbolEnd(std::string_view sql, std::size_t start) {
    for (const std::string_view pair : {"<>", "<=", ">=", "!=", "==", "||", "<<", ">>"}) {
        if (sql.substr(start).starts_with(pair)) return start + pair.size();
    }
    return start + 1;
}

bool IsNumberCharacter(char c) {
    return IsWordCharacter(c) || c == '.';
}

SqlToken TokenAt(std::string_view sql, std::size_t start) {
    const auto token = [&](SqlTokenKind kind, std::size_t end) {
        return SqlToken{kind, sql.substr(start, end - start), start};
    };
    switch (const char first = sql[start]; first) {
        case '\'':
            return token(SqlTokenKind::Text, QuotedEnd(sql, start));
        case '"':
        case '`':
            return token(SqlTokenKind::QuotedName, QuotedEnd(sql, start));
        case '[':
            return token(SqlTokenKind::QuotedName, EndAfter(sql, "]", start));
        default:
            if (IsDigit(first)) {
                return token(SqlTokenKind::Number, RunEnd(sql, start, IsNumberCharacter));
            }
            if (IsWordCharacter(first)) {
                return token(SqlTokenKind::Word, RunEnd(sql, start, IsWordCharacter));
            }
            return token(SqlTokenKind::Symbol, SymbolEnd(sql, start));
    }
}

}  // namespace

bool SqlToken::Is(std::string_view wanted) const {
    if (kind != SqlTokenKind::Word && kind != SqlTokenKind::Symbol) return false;
    return text.size() == wanted.size() && EqualsIgnoreCase(text, wanted);
}

std::vector<SqlToken> SqlTokens(std::string_view sql) {
    std::vector<SqlToken> tokens;
    int depth = 0;
    for (std::size_t at = 0; at < sql.size();) {
        const std::size_t skipped = SkippedEnd(sql, at);
        if (skipped > at) {
            at = skipped;
            continue;
        }
        SqlToken token = TokenAt(sql, at);
        if (token.Is(")")) --depth;
        token.depth = depth;
        if (token.Is("(")) ++depth;
        at = token.End();
        tokens.push_back(token);
    }
    return tokens;
}

}  // namespace platform::database
