#include "localcompany/codes.h"

#include <algorithm>

#include "platform/error.h"
#include "platform/sapdi/error_codes.h"
#include "platform/text.h"

namespace localcompany {

using platform::EqualsIgnoreCase;
using platform::IsBlank;
using platform::RuntimeError;
using platform::TrimRight;
using platform::database::Row;
namespace error_code = platform::sapdi::error_code;

namespace {

// The part of the code index, which knows the case of A to Z alone, that holds all codes equal to
// one: first included, last excluded.
struct IndexRange {
    std::string first;
    std::string last;
};

IndexRange RangeOf(std::string_view code) {
    const auto other = std::ranges::find_if(
        code, [](char letter) { return static_cast<unsigned char>(letter) >= 0x80; });
    // `!` follows the blank.
    if (other == code.end()) return {std::string(code), std::string(code) + '!'};
    const std::string start(code.begin(), other);
    return {start + "\u0080", start + "\U0010FFFF"};
}

std::string Named(const CodeTable& table, std::string_view code, std::optional<std::size_t> line) {
    return sapdi::PlaceOf(line).append(table.noun).append(" '").append(code).append("'");
}

}  // namespace

std::optional<std::string> FindCode(CompanySession& session, const CodeTable& table,
                                    std::string_view code) {
    const std::string_view wanted = TrimRight(code);
    if (wanted.empty()) return std::nullopt;
    const std::string column(table.column);
    const std::string select =
        "SELECT " + column + " FROM " + std::string(table.table) + " WHERE " + column;
    // Nearly every code is spelled as the company has it, but for the case of A to Z.
    const std::vector<Row> same = session.Run(select + " = ?1", {std::string(wanted)});
    if (!same.empty()) return *same.front().front().AsText();

    IndexRange range = RangeOf(wanted);
    for (const Row& row : session.Run(select + " >= ?1 AND " + column + " < ?2",
                                      {std::move(range.first), std::move(range.last)})) {
        const std::string* stored = row.front().AsText();
        if (stored != nullptr && EqualsIgnoreCase(TrimRight(*stored), wanted)) return *stored;
    }
    return std::nullopt;
}

std::string RequireCode(CompanySession& session, const CodeTable& table, std::string_view code,
                        std::optional<std::size_t> line) {
    if (std::optional<std::string> stored = FindCode(session, table, code)) return *stored;
    throw RuntimeError(error_code::kNoMatchingRecord, Named(table, code, line) + " does not exist");
}

void RequireAccountOrNone(CompanySession& session, std::string_view code,
                          std::optional<std::size_t> line) {
    if (IsBlank(code) || FindCode(session, kAccountCodes, code)) return;
    throw RuntimeError(error_code::kInvalidValue,
                       Named(kAccountCodes, code, line) + " does not exist");
}

}  // namespace localcompany
