// kvdayend: the server in a terminal, and unattended.

#include <unistd.h>

#include <iostream>

#include "app/commands.h"
#include "app/options.h"
#include "app/server.h"
#include "platform/process.h"
#include "ui/terminal/printable.h"
#include "ui/terminal/terminal_face.h"

namespace {

ui::terminal::Attendance AttendanceOf(const app::Options& options) {
    if (options.unattended) return ui::terminal::Attendance::Nobody;
    return isatty(STDIN_FILENO) != 0 ? ui::terminal::Attendance::Person
                                     : ui::terminal::Attendance::Script;
}

int PrintDataSets(const ui::frmMain& window) {
    for (const ui::ListEntry& entry : window.ListDayEnd)
        std::cout << ui::terminal::PrintableLine(entry.dataSet.DisplayName()) << '\n';
    std::cout.flush();
    return 0;
}

int RunCommand(const app::Options& options) {
    ui::terminal::TerminalOperator terminal({std::cin, std::cerr, std::cerr},
                                            ui::terminal::Attendance::Nobody);
    return app::RunCommand(options, {std::cout, std::cerr}, terminal);
}

}  // namespace

int main(int argc, char** argv) {
    platform::PrepareProcess();
    const app::ParsedOptions parsed = app::ParseOptions(app::Program::Terminal, argc, argv);
    if (!parsed.options) return parsed.exitStatus;
    const app::Options& options = *parsed.options;

    if (options.command != app::Command::Run) return RunCommand(options);

    // --list keeps standard output for the names.
    ui::terminal::TerminalOperator terminal(
        {std::cin, options.list ? std::cerr : std::cout, std::cerr}, AttendanceOf(options));
    return app::RunServer(options, terminal, [&](app::StartUp& server, platform::Operator&) {
        if (options.list) return PrintDataSets(server.Window());
        return ui::terminal::RunOnce({options.all, options.select}, server.Window(),
                                     server.Driver(), terminal);
    });
}
