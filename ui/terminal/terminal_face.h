// The terminal's way through one run: shows the waiting data sets, takes the selection, starts.
#pragma once

#include <string>
#include <vector>

#include "ui/frm_main.h"
#include "ui/run_driver.h"
#include "ui/terminal/terminal_operator.h"

namespace ui::terminal {

// What the command line asks for.
struct Selection {
    bool all = false;
    std::vector<std::string> names;  // display names
};

// Selects what is asked for (or what the operator chooses from the numbered list) and presses Start
// once. The exit status: 0, or 1 when a data set had errors or a wanted name is not waiting.
[[nodiscard]] int RunOnce(const Selection& selection, frmMain& window, RunDriver& runDriver,
                          TerminalOperator& terminal);

}  // namespace ui::terminal
