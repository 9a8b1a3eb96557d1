#include "fileexport/placing.h"

#include <array>
#include <sstream>

#include "platform/error.h"
#include "platform/files.h"
#include "store/data_set.h"

namespace fileexport {

namespace {

using platform::FileStamp;

constexpr const char* kNoteName = "KVDayEndServer.placing";

struct DataSetFile {
    std::string name;
    FileStamp stamp;
};

// What the note holds: the configured names and the stamps of the data-set files, a line each, and
// the data set's name, which may hold anything, to the end.
struct Note {
    ExportedDay day;
    std::array<DataSetFile, 2> files;  // sales, sales lines
};

std::array<DataSetFile, 2> FilesOf(const std::string& dataSetName) {
    return {DataSetFile{store::SalesFileName(dataSetName), {}},
            DataSetFile{store::SalesLinesFileName(dataSetName), {}}};
}

Note NoteOf(const ExportedDay& day) {
    Note note{day, FilesOf(day.dataSetName)};
    for (DataSetFile& file : note.files)
        file.stamp = platform::StampOf(file.name).value_or(FileStamp{});
    return note;
}

void Write(const Note& note) {
    std::ostringstream text;
    text << note.day.orderFile << '\n' << note.day.voucherFile << '\n';
    for (const DataSetFile& file : note.files)
        text << file.stamp.size << ' ' << file.stamp.modified << '\n';
    text << note.day.dataSetName;
    platform::WriteWholeFile(kNoteName, text.str());
}

Note Read() {
    std::istringstream text(platform::ReadWholeFile(kNoteName));
    Note note;
    std::array<FileStamp, 2> stamps;
    std::getline(text, note.day.orderFile);
    std::getline(text, note.day.voucherFile);
    for (FileStamp& stamp : stamps)
        text >> stamp.size >> stamp.modified;
    if (text.get() != '\n') {
        throw platform::RuntimeError(platform::error_number::kInvalidFileFormat,
                                     std::string(kNoteName) + " is no note of an interrupted day");
    }
    note.day.dataSetName.assign(std::istreambuf_iterator<char>(text), {});
    note.files = FilesOf(note.day.dataSetName);
    for (std::size_t i = 0; i < stamps.size(); ++i)
        note.files[i].stamp = stamps[i];
    return note;
}

void PlaceImportFile(const std::string& name) {
    platform::MoveFile(WorkingCopy(name), name);
}

void PlaceRest(const Note& note, const platform::Clock& clock) {
    for (const std::string& name : {note.day.orderFile, note.day.voucherFile}) {
        if (platform::FileExists(WorkingCopy(name))) PlaceImportFile(name);
    }
    for (const DataSetFile& file : note.files) {
        if (platform::StampOf(file.name) == file.stamp) store::RenameToFinished(file.name, clock);
    }
}

}  // namespace

std::string WorkingCopy(const std::string& fileName) {
    return fileName + ".tmp";
}

void PlaceDay(const ExportedDay& day, const platform::Clock& clock) {
    Write(NoteOf(day));
    PlaceImportFile(day.orderFile);
    PlaceImportFile(day.voucherFile);
    store::MarkAsTransferred(day.dataSetName, clock);
    platform::DeleteFile(kNoteName);
}

std::optional<std::string> FinishInterruptedDay(const platform::Clock& clock) {
    if (!platform::FileExists(kNoteName)) return std::nullopt;
    const Note note = Read();
    platform::AtPlace("The interrupted day of data set " + note.day.dataSetName,
                      [&] { PlaceRest(note, clock); });
    platform::DeleteFile(kNoteName);
    return note.day.dataSetName;
}

}  // namespace fileexport
