// SQL texts cut into tokens, blanks and comments left out. Internal to this folder.
#pragma once

#include <string_view>
#include <vector>

namespace platform::database {

enum class SqlTokenKind { Word, QuotedName, Text, Number, Symbol };

struct SqlToken {
    SqlTokenKind kind = SqlTokenKind::Symbol;
    std::string_view text;   // as it stands
    std::size_t offset = 0;  // in the whole text
    int depth = 0;           // of brackets around it

    [[nodiscard]] std::size_t End() const { return offset + text.size(); }

    // Whether it is this word or symbol; words in any case.
    [[nodiscard]] bool Is(std::string_view wanted) const;
};

[[nodiscard]] std::vector<SqlToken> SqlTokens(std::string_view sql);

}  // namespace platform::database
