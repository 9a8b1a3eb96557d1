// A note in the current directory of what is being done to a data set that can not be done in one
// step: the server that starts after one that was ended in between finds it, and finishes the day
// instead of posting it twice. Knows no transfer.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace store {

struct DayNote {
    std::string dataSetName;
    std::vector<std::string> details;           // of the transfer; texts of one line
    std::array<platform::FileStamp, 2> stamps;  // of the sales and the sales lines
};

// Notes the data set with its files as they are, on disk, in place of an earlier note.
void WriteDayNote(const std::string& noteName, const std::string& dataSetName,
                  const std::vector<std::string>& details);

// Nothing where there is no note; error 321 where it is none with as many details.
[[nodiscard]] std::optional<DayNote> ReadDayNote(const std::string& noteName,
                                                 std::size_t detailCount);

// The files that the note means and that are there under their names; what has changed since
// belongs to a later day.
[[nodiscard]] std::vector<std::string> WaitingFilesOf(const DayNote& note);

}  // namespace store
