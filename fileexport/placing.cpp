#include "fileexport/placing.h"

#include <array>
#include <iterator>
#include <sstream>

#include "fileexport/import_file.h"
#include "fileexport/placed_files.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/sha256.h"

namespace fileexport {

namespace {

using platform::FileStamp;
using platform::StampOf;

constexpr const char* kNoteName = "KVDayEndServer.placing";
constexpr FileStamp kNoFile{};
constexpr std::size_t kMostOfNote = 8192;  // bytes: names of files and some numbers

// A day on its way to its place: what the files were when it was noted, and how far it has come.
struct Note {
    store::DataSet dataSet{""};
    ImportFiles importFiles;
    FileStamp orders;     // of the working copies, which keep their stamps when they are placed
    FileStamp vouchers;   // likewise
    FileStamp oldOrders;  // of the files that are replaced; older servers did not note this one
    FileStamp oldVouchers;
    std::array<FileStamp, 2> dataSetFiles;  // sales, sales lines
    std::array<std::string, 2> hashes;      // of these; empty in the notes of older servers
    bool isPlaced = false;                  // both import files
};

// Their names on disk; empty where there is none.
std::array<std::string, 2> DataSetFilesOf(const Note& note) {
    return {note.dataSet.FindSalesFile().value_or(""),
            note.dataSet.FindSalesLinesFile().value_or("")};
}

std::array<std::string, 2> UsualNamesOf(const Note& note) {
    return {note.dataSet.SalesFile(), note.dataSet.SalesLinesFile()};
}

FileStamp StampNow(const std::string& name) {
    return StampOf(name).value_or(kNoFile);
}

bool IsThere(const std::string& name, const FileStamp& stamp) {
    return StampOf(name) == stamp;
}

FileStamp StampOfWorkingCopy(const std::string& name) {
    if (const auto stamp = StampOf(WorkingCopy(name))) return *stamp;
    throw platform::RuntimeError(platform::error_number::kFileNotFound,
                                 "There is no file " + WorkingCopy(name));
}

Note NoteOf(const store::DataSet& dataSet, const ImportFiles& importFiles) {
    Note note;
    note.dataSet = dataSet;
    note.importFiles = importFiles;
    note.orders = StampOfWorkingCopy(importFiles.orders);
    note.vouchers = StampOfWorkingCopy(importFiles.vouchers);
    note.oldOrders = StampNow(importFiles.orders);
    note.oldVouchers = StampNow(importFiles.vouchers);
    const std::array<std::string, 2> files = DataSetFilesOf(note);
    for (std::size_t i = 0; i < files.size(); ++i) {
        note.dataSetFiles[i] = StampNow(files[i]);
        note.hashes[i] = platform::Sha256OfFiles({files[i]});
    }
    return note;
}

std::string TextOf(const FileStamp& stamp) {
    std::ostringstream text;
    text << stamp.number << ' ' << stamp.size << ' ' << stamp.modified;
    return text.str();
}

// Names and stamps, a line each, then the data set's name, which may hold anything.
void Write(const Note& note) {
    std::ostringstream text;
    text << note.importFiles.orders << '\n' << note.importFiles.vouchers << '\n';
    text << TextOf(note.orders) << ' ' << TextOf(note.oldOrders) << '\n';
    text << TextOf(note.vouchers) << '\n' << TextOf(note.oldVouchers) << '\n';
    for (std::size_t i = 0; i < note.dataSetFiles.size(); ++i)
        text << TextOf(note.dataSetFiles[i]) << ' ' << note.hashes[i] << '\n';
    text << note.isPlaced << '\n' << note.dataSet.Name();
    platform::WriteWholeFile(kNoteName, text.str());
}

bool ReadStamp(std::istream& text, FileStamp& stamp) {
    return static_cast<bool>(text >> stamp.number >> stamp.size >> stamp.modified);
}

// Both stamps of the order file; the second is there since it is noted.
bool ReadStampsOfOrders(std::istream& text, Note& note) {
    std::string line;
    std::getline(text, line);
    std::istringstream stamps(line);
    if (!ReadStamp(stamps, note.orders)) return false;
    return (stamps >> std::ws).eof() || ReadStamp(stamps, note.oldOrders);
}

// A data-set file's; its hash is there since it is noted.
bool ReadDataSetFile(std::istream& text, FileStamp& stamp, std::string& hash) {
    std::string line;
    std::getline(text >> std::ws, line);
    std::istringstream values(line);
    if (!ReadStamp(values, stamp)) return false;
    values >> hash;
    return true;
}

Note Read() {
    std::istringstream text(platform::ReadWholeFile(kNoteName));
    Note note;
    std::getline(text, note.importFiles.orders);
    std::getline(text, note.importFiles.vouchers);
    bool isNote = ReadStampsOfOrders(text, note);
    isNote = isNote && ReadStamp(text, note.vouchers) && ReadStamp(text, note.oldVouchers);
    for (std::size_t i = 0; i < note.dataSetFiles.size(); ++i)
        isNote = isNote && ReadDataSetFile(text, note.dataSetFiles[i], note.hashes[i]);
    text >> note.isPlaced;
    if (!isNote || text.get() != '\n') {
        throw platform::RuntimeError(platform::error_number::kInvalidFileFormat,
                                     std::string(kNoteName) + " is no note of an interrupted day");
    }
    note.dataSet = store::DataSet({std::istreambuf_iterator<char>(text), {}});
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
    if (!IsThere(note.importFiles.orders, note.orders)) RefuseToGuess(note.importFiles.orders);
}

void PlaceVouchers(const Note& note) {
    const std::string& name = note.importFiles.vouchers;
    if (IsThere(name, note.vouchers)) return;
    const bool canBePlaced =
        IsThere(WorkingCopy(name), note.vouchers) && StampNow(name) == note.oldVouchers;
    if (!canBePlaced) RefuseToGuess(name);
    PlaceImportFile(name);
}

// A file that is not there may have its finished name, or somebody has taken it and brings it back.
void MarkDataSet(const Note& note, const platform::Clock& clock) {
    const std::array<std::string, 2> files = DataSetFilesOf(note);
    const std::array<std::string, 2> usual = UsualNamesOf(note);
    bool anyIsAbsent = false;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (IsThere(files[i], note.dataSetFiles[i])) {
            store::Finish(platform::HeldFile(files[i]), usual[i], clock);
        } else {
            anyIsAbsent = true;
        }
    }
    const bool isKnown = !note.hashes[0].empty() && !note.hashes[1].empty();
    if (anyIsAbsent && isKnown) Remember({note.dataSet, note.hashes});
}

// The order file comes first: it still waits for its place, or did not exist (a server before this
// one noted such a day), or the file in its place is still the one that it was to replace.
bool NothingIsPlaced(const Note& note) {
    if (note.isPlaced) return false;
    const std::string& name = note.importFiles.orders;
    return IsThere(WorkingCopy(name), note.orders) || note.orders == kNoFile ||
           (note.oldOrders != kNoFile && IsThere(name, note.oldOrders));
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

void PlaceDay(const store::DataSet& dataSet, const ImportFiles& importFiles,
              store::FinishedNames& finishedNames) {
    Note note = NoteOf(dataSet, importFiles);
    Write(note);
    PlaceImportFile(importFiles.orders);
    PlaceImportFile(importFiles.vouchers);
    NoteAsPlaced(note);
    finishedNames.Keep();
    platform::DeleteFile(kNoteName);
}

// Written again, as the note is when both import files are in their place: the old one is still
// there while the new one is made.
void RequireRoomForNote() {
    const std::string trial = std::string(kNoteName) + "~";
    for (int i = 0; i < 2; ++i)
        platform::WriteWholeFile(trial, std::string(kMostOfNote, ' '));
    platform::DeleteFile(trial);
}

std::optional<store::DataSet> FinishInterruptedDay(const platform::Clock& clock) {
    if (!platform::FileExists(kNoteName)) return std::nullopt;
    Note note = Read();
    const bool nothingIsPlaced = NothingIsPlaced(note);
    if (!nothingIsPlaced) {
        platform::AtPlace(std::string(kNoteName) + ", data set " + note.dataSet.DisplayName(),
                          [&] { PlaceRest(note, clock); });
    }
    platform::DeleteFile(kNoteName);
    if (nothingIsPlaced) return std::nullopt;
    return note.dataSet;
}

}  // namespace fileexport
