// Documents and journal entries in a local company: a row for the head in one table and rows for
// the lines in another, under the names by which they are rendered. Knows no rules.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "localcompany/company_session.h"
#include "platform/sapdi/head_and_lines.h"

namespace localcompany {

// The columns that are no content.
struct KeyColumns {
    std::string_view head;  // the head's key, by which the lines name their head
    std::string_view line;  // the place of a line, from 0
};

// Saves the head with these lines and gives the key; the number is the same.
[[nodiscard]] std::int32_t InsertHeadAndLines(CompanySession& session, const KeyColumns& keys,
                                              const sapdi::HeadAndLines& content,
                                              std::span<const sapdi::Row> lines);

// False, with the content as it was, where there is no head of that key.
bool LoadHeadAndLines(CompanySession& session, const KeyColumns& keys, std::int32_t key,
                      sapdi::HeadAndLines& content);

}  // namespace localcompany
