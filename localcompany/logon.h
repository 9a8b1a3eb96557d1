// Who may log on to which local company: the file that a server and a company database mean, and
// whether a user and a password are accepted. Every refusal is error -10; no text holds a password.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "localcompany/company_session.h"

namespace localcompany {

// The company's file; nothing is created where there is none.
[[nodiscard]] std::filesystem::path CompanyFile(std::string_view server, std::string_view companyDb,
                                                const std::string& programFolder);

// Returns where the company has the user with that password.
void RequireUser(CompanySession& session, std::string_view user, const std::string& password);

}  // namespace localcompany
