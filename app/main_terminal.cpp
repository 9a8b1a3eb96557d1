// kvdayend: the server in a terminal, and unattended.

#include <unistd.h>

#include <csignal>
#include <iostream>

#include "app/options.h"
#include "app/start_up.h"
#include "platform/database/sqlite_engine.h"
#include "ui/journal.h"
#include "ui/terminal/terminal_face.h"

namespace {

constexpr int kExitFatal = 3;

ui::Attendance AttendanceOf(const app::Options& options) {
    if (options.unattended) return ui::Attendance::Nobody;
    return isatty(STDIN_FILENO) != 0 ? ui::Attendance::Person : ui::Attendance::Script;
}

void PrintDataSets(const ui::frmMain& window) {
    for (const ui::ListEntry& entry : window.ListDayEnd) std::cout << entry.text << '\n';
    std::cout.flush();
}

int RunServer(const app::Options& options, ui::TerminalOperator& terminal,
              platform::Operator& theOperator, platform::Clock& clock) {
    platform::SystemProcessStarter processStarter;
    platform::ProfileFiles profileFiles;
    platform::SqliteEngine databaseEngine;
    app::StartUp server(options.folder,
                        {theOperator, clock, processStarter, profileFiles, databaseEngine});
    try {
        if (server.Main() == app::AfterStartUp::EndProgram) return kExitFatal;
        if (options.list) {
            PrintDataSets(server.Window());
            return 0;
        }
        return ui::RunOnce({options.all, options.select}, server.Window(), server.Driver(),
                           terminal);
    } catch (const platform::RuntimeError& error) {
        theOperator.ReportFatal(error);
        return kExitFatal;
    }
}

}  // namespace

int main(int argc, char** argv) {
    const app::ParsedOptions parsed = app::ParseOptions(app::Program::Terminal, argc, argv);
    if (!parsed.options) return parsed.exitStatus;
    const app::Options& options = *parsed.options;

    // A reader of the output that goes away must not stop a day half way.
    std::signal(SIGPIPE, SIG_IGN);
    platform::SystemClock clock;
    // --list keeps standard output for the names.
    ui::TerminalOperator terminal({std::cin, options.list ? std::cerr : std::cout, std::cerr},
                                  AttendanceOf(options));
    if (options.journal.empty()) return RunServer(options, terminal, terminal, clock);
    try {
        ui::Journal journal(options.journal, terminal, clock);
        return RunServer(options, terminal, journal, clock);
    } catch (const platform::RuntimeError& error) {
        terminal.ReportFatal(error);
        return kExitFatal;
    }
}
