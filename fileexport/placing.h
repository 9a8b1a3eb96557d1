// Places an exported day: the import files take their configured names, the data-set files their
// finished ones. What is to be placed is noted in the current directory first, so that a server
// that is ended in between finishes the day at its next start: the day would be posted twice
// otherwise.
#pragma once

#include <optional>
#include <string>

#include "platform/clock.h"

namespace fileexport {

// A day whose import files are complete as working copies.
struct ExportedDay {
    std::string dataSetName;
    std::string orderFile;  // by their configured names
    std::string voucherFile;
};

// The name that an import file has while it is made.
[[nodiscard]] std::string WorkingCopy(const std::string& fileName);

// The order file first, then the voucher file, the sales, the sales lines. After an error the note
// stays.
void PlaceDay(const ExportedDay& day, const platform::Clock& clock);

// Places what is left of a noted day and gives its data set's name; nothing where no day is noted,
// or where nothing of it was placed: it still waits. Data-set files that are not the noted ones
// belong to a later day and stay. Where the import files have changed meanwhile in a way that
// leaves open what was placed, error 75 tells so, and the note stays.
[[nodiscard]] std::optional<std::string> FinishInterruptedDay(const platform::Clock& clock);

}  // namespace fileexport
