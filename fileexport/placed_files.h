// Data-set files of interrupted days that did not bear their waiting names when their day was
// finished. They are remembered in the current directory by what they hold: where the till brings
// one back, its day is not posted again.
#pragma once

#include <string>
#include <vector>

#include "platform/clock.h"
#include "ui/status_log.h"

namespace fileexport {

struct PlacedFile {
    std::string name;    // as the data set calls it
    std::string sha256;  // of its content, hexadecimal
};

void Remember(const std::vector<PlacedFile>& files);

// Gives those that have come back their finished names, says so, and forgets them.
void FinishFilesThatCameBack(const platform::Clock& clock, ui::StatusLog& statusLog);

}  // namespace fileexport
