#include "fileexport/placed_files.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/held_file.h"
#include "platform/sha256.h"
#include "store/finished_name.h"

namespace fileexport {

namespace {

constexpr const char* kListName = "KVDayEndServer.placed";
constexpr std::size_t kMostDays = 20;   // what has not come back after so many does not come
constexpr const char* kCameBack = "-";  // in the place of a hash

// Both hashes and the name of the data set, which may hold anything but the zero behind it.
std::vector<PlacedDay> ReadList() {
    std::vector<PlacedDay> days;
    if (!platform::FileExists(kListName)) return days;
    std::istringstream text(platform::ReadWholeFile(kListName));
    std::array<std::string, 2> hashes;
    std::string name;
    while (text >> hashes[0] >> hashes[1] && std::getline(text.ignore(), name, '\0'))
        days.push_back({store::DataSet(name), hashes});
    return days;
}

void WriteList(const std::vector<PlacedDay>& days) {
    if (days.empty()) return platform::DeleteFile(kListName);
    std::string text;
    for (const PlacedDay& day : days)
        text += day.hashes[0] + ' ' + day.hashes[1] + ' ' + day.dataSet.Name() + '\0';
    platform::WriteWholeFile(kListName, text);
}

struct Found {
    std::optional<std::string> name;  // on disk
    std::string usualName;
    bool isTheDays = false;
};

std::array<Found, 2> FindFiles(const PlacedDay& day) {
    std::array<Found, 2> files = {
        Found{day.dataSet.FindSalesFile(), day.dataSet.SalesFile()},
        Found{day.dataSet.FindSalesLinesFile(), day.dataSet.SalesLinesFile()}};
    for (std::size_t i = 0; i < files.size(); ++i) {
        Found& file = files[i];
        file.isTheDays = file.name && platform::Sha256OfFiles({*file.name}) == day.hashes[i];
    }
    return files;
}

// Whether anything of the day has come back and got its finished name.
bool FinishWhatCameBack(PlacedDay& day, const platform::Clock& clock, ui::StatusLog& statusLog) {
    const std::array<Found, 2> files = FindFiles(day);
    const bool isAnotherDay =
        std::ranges::any_of(files, [](const Found& file) { return file.name && !file.isTheDays; });
    if (isAnotherDay) return false;
    bool anyCameBack = false;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (!files[i].isTheDays) continue;
        store::Finish(platform::HeldFile(*files[i].name), files[i].usualName, clock);
        statusLog.AppendStatusLine("Filen " + files[i].usualName +
                                   " er overført fra før, og har nå fått sitt ferdige navn.");
        day.hashes[i] = kCameBack;
        anyCameBack = true;
    }
    return anyCameBack;
}

}  // namespace

void Remember(PlacedDay day) {
    std::vector<PlacedDay> days = ReadList();
    if (days.size() >= kMostDays) days.erase(days.begin());
    days.push_back(std::move(day));
    WriteList(days);
}

void FinishFilesThatCameBack(const platform::Clock& clock, ui::StatusLog& statusLog) {
    std::vector<PlacedDay> days = ReadList();
    bool anyCameBack = false;
    for (PlacedDay& day : days)
        anyCameBack = FinishWhatCameBack(day, clock, statusLog) || anyCameBack;
    if (!anyCameBack) return;
    std::erase_if(days, [](const PlacedDay& day) {
        return day.hashes[0] == kCameBack && day.hashes[1] == kCameBack;
    });
    WriteList(days);
}

}  // namespace fileexport
