#include "fileexport/placing.h"

#include "platform/error.h"
#include "platform/files.h"
#include "store/data_set.h"
#include "store/day_note.h"

namespace fileexport {

namespace {

constexpr const char* kNoteName = "KVDayEndServer.placing";
constexpr std::size_t kImportFiles = 2;  // the details of the note

void PlaceImportFile(const std::string& name) {
    platform::MoveFile(WorkingCopy(name), name);
}

void PlaceRest(const store::DayNote& note, const platform::Clock& clock) {
    for (const std::string& name : note.details) {
        if (platform::FileExists(WorkingCopy(name))) PlaceImportFile(name);
    }
    for (const std::string& file : store::WaitingFilesOf(note))
        store::RenameToFinished(file, clock);
}

}  // namespace

std::string WorkingCopy(const std::string& fileName) {
    return fileName + ".tmp";
}

void PlaceDay(const ExportedDay& day, const platform::Clock& clock) {
    store::WriteDayNote(kNoteName, day.dataSetName, {day.orderFile, day.voucherFile});
    PlaceImportFile(day.orderFile);
    PlaceImportFile(day.voucherFile);
    store::MarkAsTransferred(day.dataSetName, clock);
    platform::DeleteFile(kNoteName);
}

std::optional<std::string> FinishInterruptedDay(const platform::Clock& clock) {
    const std::optional<store::DayNote> note = store::ReadDayNote(kNoteName, kImportFiles);
    if (!note) return std::nullopt;
    platform::AtPlace("The interrupted day of data set " + note->dataSetName,
                      [&] { PlaceRest(*note, clock); });
    platform::DeleteFile(kNoteName);
    return note->dataSetName;
}

}  // namespace fileexport
