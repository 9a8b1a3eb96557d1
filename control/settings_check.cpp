#include "control/settings_check.h"

#include <filesystem>
#include <string>

#include "platform/error.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/text.h"

namespace control {

namespace {

using app::AppSettings;

constexpr const char* kOverwriteOn = "1";

bool CanBePlaced(const char* field, const std::string& name, Findings& findings) {
    try {
        platform::RequirePlaceForFile(name);
        return true;
    } catch (const platform::RuntimeError&) {
        findings.Add("K001", {.field = field, .value = name});
        return false;
    }
}

// Also where one of them leads to the other by a link.
bool AreOneFile(const std::string& left, const std::string& right) {
    const auto place = [](const std::string& name) {
        std::error_code ignored;
        return std::filesystem::weakly_canonical(
            std::filesystem::absolute(platform::ResolvePath(name)), ignored);
    };
    std::error_code ignored;
    return place(left) == place(right) ||
           std::filesystem::equivalent(place(left), place(right), ignored);
}

void CheckImportFiles(const AppSettings& settings, Findings& findings) {
    const bool hasVouchers = CanBePlaced("VoucherFileName", settings.VoucherFileName, findings);
    const bool hasOrders = CanBePlaced("EDIFileName", settings.EDIFileName, findings);
    if (hasVouchers && hasOrders && AreOneFile(settings.VoucherFileName, settings.EDIFileName)) {
        findings.Add("K002", {.field = "EDIFileName", .value = settings.EDIFileName});
    }
}

void CheckOverwriting(const AppSettings& settings, std::size_t waiting, Findings& findings) {
    const bool isOn = settings.Overwrite == kOverwriteOn;
    if (platform::FileExists(settings.VoucherFileName)) {
        Place place{.field = "VoucherFileName", .value = settings.VoucherFileName};
        if (!isOn) {
            place.severity = Severity::Note;
            place.text =
                "Bilagsfilen «{value}» ligger og venter. Under overføringen blir det spurt om den "
                "skal overskrives.";
        }
        findings.Add("K003", place);
    }
    if (isOn && waiting > 1) {
        findings.Add("K004", {.field = "Overwrite", .value = std::to_string(waiting)});
    }
}

}  // namespace

void CheckSettings(const Shop& shop, std::size_t waiting, Findings& findings) {
    const AppSettings& settings = shop.Settings();
    if (!shop.UsesSap()) {
        CheckImportFiles(settings, findings);
        CheckOverwriting(settings, waiting, findings);
        if (platform::EqualsIgnoreCase(platform::Trim(settings.AccountingSystem), "SAP")) {
            findings.Add("K007", {.field = "AccountingSystem", .value = settings.AccountingSystem});
        }
    }
    const std::string& command = settings.DayEndCommand;
    if (!platform::IsBlank(command) && !platform::CanBeStarted(command)) {
        findings.Add("K008", {.field = "DayEndCommand", .value = command});
    }
}

}  // namespace control
