#include "fileexport/placing.h"

#include <array>
#include <iterator>
#include <sstream>

#include "platform/error.h"
#include "platform/files.h"
#include "store/data_set.h"

namespace fileexport {

namespace {

using platform::FileStamp;
using platform::StampOf;

constexpr const char* kNoteName = "KVDayEndServer.placing";
constexpr FileStamp kNoFile{};

// A day on its way to its place: what the files were when it was noted, and how far it has come.
struct Note {
    ExportedDay day;
    FileStamp orders;       // of the working copies, which keep their stamps when they are placed
    FileStamp vouchers;     // likewise
    FileStamp oldVouchers;  // of the voucher file that is replaced
    std::array<FileStamp, 2> dataSet;  // sales, sales lines
    bool isPlaced = false;             // both import files
};

std::array<std::string, 2> DataSetFilesOf(const Note& note) {
    return {store::SalesFileName(note.day.dataSetName),
            store::SalesLinesFileName(note.day.dataSetName)};
}

FileStamp StampNow(const std::string& name) {
    return StampOf(name).value_or(kNoFile);
}

bool IsThere(const std::string& name, const FileStamp& stamp) {
    return StampOf(name) == stamp;
}

Note NoteOf(const ExportedDay& day) {
    Note note;
    note.day = day;
    note.orders = StampNow(WorkingCopy(day.orderFile));
    note.vouchers = StampNow(WorkingCopy(day.voucherFile));
    note.oldVouchers = StampNow(day.voucherFile);
    for (std::size_t i = 0; i < note.dataSet.size(); ++i)
        note.dataSet[i] = StampNow(DataSetFilesOf(note)[i]);
    return note;
}

// Names and stamps, a line each, then the data set's name, which may hold anything.
void Write(const Note& note) {
    std::ostringstream text;
    text << note.day.orderFile << '\n' << note.day.voucherFile << '\n';
    for (const FileStamp& stamp :
         {note.orders, note.vouchers, note.oldVouchers, note.dataSet[0], note.dataSet[1]})
        text << stamp.number << ' ' << stamp.size << ' ' << stamp.modified << '\n';
    text << note.isPlaced << '\n' << note.day.dataSetName;
    platform::WriteWholeFile(kNoteName, text.str());
}

Note Read() {
    std::istringstream text(platform::ReadWholeFile(kNoteName));
    Note note;
    std::getline(text, note.day.orderFile);
    std::getline(text, note.day.voucherFile);
    for (FileStamp* stamp :
         {&note.orders, &note.vouchers, &note.oldVouchers, &note.dataSet[0], &note.dataSet[1]})
        text >> stamp->number >> stamp->size >> stamp->modified;
    text >> note.isPlaced;
    if (text.get() != '\n') {
        throw platform::RuntimeError(platform::error_number::kInvalidFileFormat,
                                     std::string(kNoteName) + " is no note of an interrupted day");
    }
    note.day.dataSetName.assign(std::istreambuf_iterator<char>(text), {});
    return note;
}

void PlaceImportFile(const std::string& name) {
    platform::MoveFile(WorkingCopy(name), name);
}

// Somebody has worked on the files meanwhile: to guess could lose the day or post it twice.
[[noreturn]] void RefuseToGuess(const std::string& name) {
    throw platform::RuntimeError(
        platform::error_number::kPathAccess,
        "the server was ended while it placed the day's import files, and " + name +
            " has changed since. See what the accounting package has of the day. Then delete " +
            kNoteName + ", and give the files of the data set other names if it has it all");
}

void RequirePlacedOrders(const Note& note) {
    if (!IsThere(note.day.orderFile, note.orders)) RefuseToGuess(note.day.orderFile);
}

void PlaceVouchers(const Note& note) {
    const std::string& name = note.day.voucherFile;
    if (IsThere(name, note.vouchers)) return;
    const bool canBePlaced =
        IsThere(WorkingCopy(name), note.vouchers) && StampNow(name) == note.oldVouchers;
    if (!canBePlaced) RefuseToGuess(name);
    PlaceImportFile(name);
}

void MarkDataSet(const Note& note, const platform::Clock& clock) {
    const std::array<std::string, 2> files = DataSetFilesOf(note);
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (IsThere(files[i], note.dataSet[i])) store::RenameToFinished(files[i], clock);
    }
}

// Both import files are in their place: from here on the accounting package may take them.
void NoteAsPlaced(Note& note) {
    note.isPlaced = true;
    Write(note);
}

void PlaceRest(Note& note, const platform::Clock& clock) {
    if (!note.isPlaced) {
        RequirePlacedOrders(note);
        PlaceVouchers(note);
        NoteAsPlaced(note);
    }
    MarkDataSet(note, clock);
}

}  // namespace

std::string WorkingCopy(const std::string& fileName) {
    return fileName + ".tmp";
}

void PlaceDay(const ExportedDay& day, const platform::Clock& clock) {
    Note note = NoteOf(day);
    Write(note);
    PlaceImportFile(day.orderFile);
    PlaceImportFile(day.voucherFile);
    NoteAsPlaced(note);
    store::MarkAsTransferred(day.dataSetName, clock);
    platform::DeleteFile(kNoteName);
}

std::optional<std::string> FinishInterruptedDay(const platform::Clock& clock) {
    if (!platform::FileExists(kNoteName)) return std::nullopt;
    Note note = Read();
    const bool nothingIsPlaced =
        !note.isPlaced && IsThere(WorkingCopy(note.day.orderFile), note.orders);
    if (!nothingIsPlaced) {
        platform::AtPlace(
            std::string(kNoteName) + ", data set " + store::DisplayNameOf(note.day.dataSetName),
            [&] { PlaceRest(note, clock); });
    }
    platform::DeleteFile(kNoteName);
    if (nothingIsPlaced) return std::nullopt;
    return note.day.dataSetName;
}

}  // namespace fileexport
