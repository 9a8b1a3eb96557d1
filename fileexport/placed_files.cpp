#include "fileexport/placed_files.h"

#include <sstream>

#include "platform/files.h"
#include "platform/held_file.h"
#include "platform/sha256.h"
#include "store/finished_name.h"

namespace fileexport {

namespace {

constexpr const char* kListName = "KVDayEndServer.placed";

// A line each: the hash, a blank, the name.
std::vector<PlacedFile> ReadList() {
    std::vector<PlacedFile> files;
    if (!platform::FileExists(kListName)) return files;
    std::istringstream text(platform::ReadWholeFile(kListName));
    for (PlacedFile file; text >> file.sha256 && std::getline(text.ignore(), file.name);)
        files.push_back(file);
    return files;
}

void WriteList(const std::vector<PlacedFile>& files) {
    if (files.empty()) return platform::DeleteFile(kListName);
    std::string text;
    for (const PlacedFile& file : files)
        text += file.sha256 + ' ' + file.name + '\n';
    platform::WriteWholeFile(kListName, text);
}

bool IsBack(const PlacedFile& file) {
    return platform::FileExists(file.name) && platform::Sha256OfFiles({file.name}) == file.sha256;
}

}  // namespace

void Remember(const std::vector<PlacedFile>& files) {
    if (files.empty()) return;
    std::vector<PlacedFile> list = ReadList();
    list.insert(list.end(), files.begin(), files.end());
    WriteList(list);
}

void FinishFilesThatCameBack(const platform::Clock& clock, ui::StatusLog& statusLog) {
    const std::vector<PlacedFile> list = ReadList();
    std::vector<PlacedFile> gone;
    for (const PlacedFile& file : list) {
        if (!IsBack(file)) {
            gone.push_back(file);
            continue;
        }
        store::Finish(platform::HeldFile(file.name), file.name, clock);
        statusLog.AppendStatusLine("Filen " + file.name +
                                   " er overført fra før, og har nå fått sitt ferdige navn.");
    }
    if (gone.size() < list.size()) WriteList(gone);
}

}  // namespace fileexport
