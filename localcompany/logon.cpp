#include "localcompany/logon.h"

#include <crypt.h>

#include <memory>
#include <optional>
#include <system_error>

#include "localcompany/codes.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/sapdi/error_codes.h"
#include "platform/text.h"

namespace localcompany {

using platform::EqualsIgnoreCase;
using platform::IsBlank;
using platform::ResolvePath;
using platform::RuntimeError;
using platform::Trim;
using platform::database::Row;
namespace error_code = platform::sapdi::error_code;

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLocalServer = "(local)";
constexpr std::string_view kCompanyExtension = ".company";
constexpr std::string_view kPasswordOfUser = "SELECT PASSWORD FROM OUSR WHERE USER_CODE = ?1";

RuntimeError Refusal(const std::string& text) {
    return {error_code::kNotAccepted, text};
}

fs::path FolderOfServer(std::string_view server, const std::string& programFolder) {
    if (IsBlank(server) || EqualsIgnoreCase(Trim(server), kLocalServer)) return programFolder;
    fs::path folder = ResolvePath(server);
    std::error_code ignored;
    if (!fs::is_directory(folder, ignored)) {
        throw Refusal("Server '" + std::string(server) + "' does not exist");
    }
    return folder;
}

// The name alone, so that no setting reaches a file in another folder.
void RequirePlainName(std::string_view companyDb) {
    if (IsBlank(companyDb)) throw Refusal("Company database is missing");
    if (companyDb.find_first_of(std::string_view("/\\\0", 3)) != std::string_view::npos ||
        companyDb.find("..") != std::string_view::npos) {
        throw Refusal("Company database '" + std::string(companyDb) + "' is not a valid name");
    }
}

bool IsPassword(const std::string& password, const std::string& hash) {
    // The library would read the password only up to a zero byte.
    if (hash.empty() || password.find('\0') != std::string::npos) return false;
    const auto scratch = std::make_unique<crypt_data>();
    const char* computed = crypt_r(password.c_str(), hash.c_str(), scratch.get());
    constexpr char kFailure = '*';
    return computed != nullptr && *computed != kFailure && hash == computed;
}

}  // namespace

fs::path CompanyFile(std::string_view server, std::string_view companyDb,
                     const std::string& programFolder) {
    const fs::path folder = FolderOfServer(server, programFolder);
    RequirePlainName(companyDb);
    std::string name(companyDb);
    fs::path file = ResolvePath((folder / name.append(kCompanyExtension)).string());
    std::error_code ignored;
    if (fs::is_regular_file(file, ignored)) return file;
    throw Refusal("Company database '" + std::string(companyDb) + "' does not exist");
}

void RequireUser(CompanySession& session, std::string_view user, const std::string& password) {
    const std::optional<std::string> stored = FindCode(session, kUserCodes, user);
    if (stored) {
        const std::vector<Row> rows = session.Run(kPasswordOfUser, {*stored});
        const std::string* hash = rows.empty() ? nullptr : rows.front().front().AsText();
        if (hash != nullptr && IsPassword(password, *hash)) return;
    }
    // The same for both, so that nobody learns which users there are.
    throw Refusal("User '" + std::string(user) + "' or the password is not accepted");
}

}  // namespace localcompany
