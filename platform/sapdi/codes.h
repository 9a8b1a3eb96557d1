// Codes of partners, items, accounts and users: equal without regard to case and to blanks at their
// end, stored as they were given. A blank code is none.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/sapdi/company_session.h"
#include "platform/text.h"

namespace platform::sapdi {

// Where the codes of one kind are kept.
struct CodeTable {
    std::string_view table;
    std::string_view column;
    std::string_view noun;  // as error texts name it
};

inline constexpr CodeTable kCustomerCodes{"OCRD", "CardCode", "Customer code"};
inline constexpr CodeTable kItemCodes{"OITM", "ItemCode", "Item code"};
inline constexpr CodeTable kAccountCodes{"OACT", "AcctCode", "Account code"};
inline constexpr CodeTable kUserCodes{"OUSR", "USER_CODE", "User code"};

[[nodiscard]] inline bool IsBlank(std::string_view code) {
    return Trim(code).empty();
}

// The code as the company has it; nothing where it has none that is equal.
[[nodiscard]] std::optional<std::string> FindCode(CompanySession& session, const CodeTable& table,
                                                  std::string_view code);

// The same; error -2028 where the company does not have the code. `place` ("Line 2: ") begins the
// text.
std::string RequireCode(CompanySession& session, const CodeTable& table, std::string_view code,
                        std::string_view place = {});

// Error -5002 for an account code that is neither blank nor the company's.
void RequireAccountOrNone(CompanySession& session, std::string_view code, std::string_view place);

}  // namespace platform::sapdi
