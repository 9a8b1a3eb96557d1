#include "store/finished_name.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/text.h"

namespace store {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFinished = ".ferdig";
constexpr std::string_view kTrial = ".ferdi~";
constexpr std::size_t kStampLength = 12;

// Whether a server makes such a name for a waiting file, finished or to try it.
bool IsServersName(std::string_view name, std::string_view usualName) {
    const std::size_t stamp = usualName.size() + 1;
    if (!name.starts_with(usualName) || name.size() != stamp + kStampLength + kFinished.size()) {
        return false;
    }
    const std::string_view digits = name.substr(stamp, kStampLength);
    const bool isStamped =
        name[stamp - 1] == '.' && digits.find_first_not_of("0123456789") == std::string_view::npos;
    return isStamped && (name.ends_with(kFinished) || name.ends_with(kTrial));
}

// The server's names in the folder that mean the waiting file itself.
std::vector<fs::path> SecondNamesOf(const platform::HeldFile& file, const std::string& usualName) {
    std::vector<fs::path> names;
    if (!file.HasOtherNames()) return names;
    std::error_code failure;
    fs::directory_iterator entry(".", failure);
    for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
        const fs::path name = entry->path().filename();
        if (IsServersName(name.string(), usualName) && file.IsAlso(name)) names.push_back(name);
    }
    return names;
}

bool IsTaken(const std::string& name) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(name, ignored));
}

}  // namespace

// kept: stamp-without-minutes. Year, month, day, hour and seconds: the shop's other tools parse it.
std::string FinishedName(std::string_view fileName, const platform::DateTime& moment) {
    using platform::Digits;
    return std::string(fileName) + "." + Digits(moment.year, 4) + Digits(moment.month, 2) +
           Digits(moment.day, 2) + Digits(moment.hour, 2) + Digits(moment.second, 2) +
           std::string(kFinished);
}

std::string TrialName(std::string_view fileName, const platform::DateTime& moment) {
    std::string name = FinishedName(fileName, moment);
    return name.replace(name.size() - kFinished.size(), kFinished.size(), kTrial);
}

SecondName::SecondName(const platform::HeldFile& file, std::string name)
    : file_(file), name_(std::move(name)) {
    // In another spelling it is another file.
    if (IsTaken(name_)) platform::KeepAside(name_);
    if (IsTaken(name_)) platform::DeleteFile(name_);
    platform::AddName(file_.Name(), name_);
}

SecondName::~SecondName() {
    if (!isKept_) ::unlink(name_.c_str());
}

void SecondName::LeaveWaitingName() const {
    if (file_.IsUnchanged()) platform::DeleteFile(file_.Name());
}

bool HasFinishedName(const platform::HeldFile& file, const std::string& usualName) {
    return std::ranges::any_of(SecondNamesOf(file, usualName), [](const fs::path& name) {
        return name.string().ends_with(kFinished);
    });
}

void Finish(const platform::HeldFile& file, const std::string& usualName,
            const platform::Clock& clock) {
    if (HasFinishedName(file, usualName)) return platform::DeleteFile(file.Name());
    SecondName finished(file, FinishedName(usualName, clock.Now()));
    finished.Keep();
    finished.LeaveWaitingName();
}

void GiveUpFinishedNames(const platform::HeldFile& file, const std::string& usualName) {
    for (const fs::path& name : SecondNamesOf(file, usualName))
        platform::DeleteFile(name.string());
}

}  // namespace store
