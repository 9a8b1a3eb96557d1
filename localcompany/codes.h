// Codes of partners, items, accounts and users in the company's tables: equal without regard to
// case and to blanks at their end, stored as they were given.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "localcompany/company_session.h"
#include "platform/sapdi/code_rules.h"

namespace localcompany {

// Where the codes of one kind are kept.
struct CodeTable {
    std::string_view table;
    std::string_view column;
    std::string_view noun;  // as error texts name it
};

inline constexpr CodeTable kCustomerCodes{"OCRD", "CardCode", sapdi::kCustomerCodeNoun};
inline constexpr CodeTable kItemCodes{"OITM", "ItemCode", sapdi::kItemCodeNoun};
inline constexpr CodeTable kAccountCodes{"OACT", "AcctCode", "Account code"};
inline constexpr CodeTable kUserCodes{"OUSR", "USER_CODE", "User code"};

// The code as the company has it; nothing where it has none that is equal.
[[nodiscard]] std::optional<std::string> FindCode(CompanySession& session, const CodeTable& table,
                                                  std::string_view code);

// The same; error -2028 where the company does not have the code. Its text names the line, if any.
std::string RequireCode(CompanySession& session, const CodeTable& table, std::string_view code,
                        std::optional<std::size_t> line = {});

// Error -5002 for an account code that is neither blank nor the company's.
void RequireAccountOrNone(CompanySession& session, std::string_view code,
                          std::optional<std::size_t> line);

}  // namespace localcompany
