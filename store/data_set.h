// A day-end data set: the pair of files that a prefix names, how the operator sees it, and the
// names that the files get when the set is done.
#pragma once

#include <string>
#include <string_view>

#include "platform/clock.h"

namespace store {

// The display name of the data set with the empty prefix.
inline constexpr const char* kUnnamedDataSet = "<Uten navn>";

[[nodiscard]] std::string SalesFileName(std::string_view dataSetName);
[[nodiscard]] std::string SalesLinesFileName(std::string_view dataSetName);

// The prefix behind an entry of the operator's list, and the entry of a prefix.
[[nodiscard]] std::string DataSetNameOf(std::string_view displayName);
[[nodiscard]] std::string DisplayNameOf(std::string_view dataSetName);

// `fileName` + ".", the stamp and ".ferdig". The stamp is year, month, day, hour and seconds;
// that it has no minutes is kept on purpose.
[[nodiscard]] std::string FinishedName(std::string_view fileName, const platform::DateTime& moment);

// Gives both files of the data set their finished names, the sales file first, each with its own
// reading of the clock. A finished file of the same name is replaced.
void MarkAsTransferred(std::string_view dataSetName, const platform::Clock& clock);

// Gives one data-set file its finished name.
void RenameToFinished(const std::string& fileName, const platform::Clock& clock);

}  // namespace store
