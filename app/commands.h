// The commands of kvdayend beside a run: they ask nothing and change nothing in the shop, and work
// while a server runs there.
#pragma once

#include <iosfwd>

#include "app/options.h"
#include "platform/operator.h"

namespace app {

struct CommandStreams {
    std::ostream& output;
    std::ostream& errors;
};

// The exit status: 0; 1 for a name that no data set bears; 2 for a code that there is not; 3 after
// an error that nobody handled, which `face` is told; 4 where an error was found.
[[nodiscard]] int RunCommand(const Options& options, const CommandStreams& streams,
                             platform::Operator& face);

}  // namespace app
