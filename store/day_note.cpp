#include "store/day_note.h"

#include <iterator>
#include <sstream>

#include "platform/error.h"
#include "store/data_set.h"

namespace store {

namespace {

using platform::FileStamp;

std::array<std::string, 2> FileNamesOf(const std::string& dataSetName) {
    return {SalesFileName(dataSetName), SalesLinesFileName(dataSetName)};
}

}  // namespace

// A line for each detail and each stamp; then the data set's name, which may hold anything.
void WriteDayNote(const std::string& noteName, const std::string& dataSetName,
                  const std::vector<std::string>& details) {
    std::ostringstream text;
    for (const std::string& detail : details)
        text << detail << '\n';
    for (const std::string& file : FileNamesOf(dataSetName)) {
        const FileStamp stamp = platform::StampOf(file).value_or(FileStamp{});
        text << stamp.size << ' ' << stamp.modified << '\n';
    }
    text << dataSetName;
    platform::WriteWholeFile(noteName, text.str());
}

std::optional<DayNote> ReadDayNote(const std::string& noteName, std::size_t detailCount) {
    if (!platform::FileExists(noteName)) return std::nullopt;
    std::istringstream text(platform::ReadWholeFile(noteName));
    DayNote note;
    note.details.resize(detailCount);
    for (std::string& detail : note.details)
        std::getline(text, detail);
    for (FileStamp& stamp : note.stamps)
        text >> stamp.size >> stamp.modified;
    if (text.get() != '\n') {
        throw platform::RuntimeError(platform::error_number::kInvalidFileFormat,
                                     noteName + " is no note of an interrupted day");
    }
    note.dataSetName.assign(std::istreambuf_iterator<char>(text), {});
    return note;
}

std::vector<std::string> WaitingFilesOf(const DayNote& note) {
    const std::array<std::string, 2> names = FileNamesOf(note.dataSetName);
    std::vector<std::string> waiting;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (platform::StampOf(names[i]) == note.stamps[i]) waiting.push_back(names[i]);
    }
    return waiting;
}

}  // namespace store
