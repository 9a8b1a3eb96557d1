// What every program of the server does around its face: the real world, start-up, the journal
// where one is wanted, and the report of an error that nobody handled.
#pragma once

#include <functional>

#include "app/options.h"
#include "app/start_up.h"
#include "platform/operator.h"

namespace app {

inline constexpr int kExitFatal = 3;

// What the program does once start-up is through; its answer is the exit status. The operator is
// the face, behind the journal if there is one.
using AfterMain = std::function<int(StartUp& server, platform::Operator& theOperator)>;

// The exit status: that of `afterMain`, or 3 after an error and when the operator chose to end over
// a table that did not open.
[[nodiscard]] int RunServer(const Options& options, platform::Operator& face,
                            const AfterMain& afterMain);

}  // namespace app
