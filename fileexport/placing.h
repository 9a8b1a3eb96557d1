// Places an exported day: the import files take their configured names, the data-set files their
// finished ones. It is noted in the current directory first, so that a server that is ended in
// between finishes the day at its next start, where it would be posted twice otherwise.
#pragma once

#include <optional>
#include <string>

#include "platform/clock.h"
#include "store/data_set.h"
#include "store/waiting_files.h"

namespace fileexport {

// The names that the import files take: none of them a link's.
struct ImportFiles {
    std::string orders;
    std::string vouchers;
};

// Places a day whose import files are complete as working copies: the order file first, then the
// voucher file; then the data-set files keep their finished names alone. A working copy that is
// gone is error 53 before anything is noted. After any other error the note stays.
void PlaceDay(const store::DataSet& dataSet, const ImportFiles& importFiles,
              store::FinishedNames& finishedNames);

// Error 61, 70 or 75 unless a day can be noted.
void RequireRoomForNote();

// Places what is left of a noted day and gives its data set; nothing where no day is noted, or none
// of it was placed: it still waits. Data-set files that are not the noted ones belong to a later
// day and stay. Where it is open what was placed, error 75 tells so, and the note stays.
[[nodiscard]] std::optional<store::DataSet> FinishInterruptedDay(const platform::Clock& clock);

}  // namespace fileexport
