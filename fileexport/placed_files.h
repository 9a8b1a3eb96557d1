// Days whose data-set files did not bear their waiting names when an interrupted day was finished.
// They are remembered in the current directory by what they hold: where the till brings a file
// back, its day is not posted again.
#pragma once

#include <array>
#include <string>

#include "platform/clock.h"
#include "store/data_set.h"
#include "ui/status_log.h"

namespace fileexport {

struct PlacedDay {
    store::DataSet dataSet;
    std::array<std::string, 2> hashes;  // SHA-256 of the sales and of the lines file, hexadecimal
};

void Remember(PlacedDay day);

// Gives files that have come back their finished names, says so, and forgets them. Beside a file of
// another day none is: it may be that day's too.
void FinishFilesThatCameBack(const platform::Clock& clock, ui::StatusLog& statusLog);

}  // namespace fileexport
