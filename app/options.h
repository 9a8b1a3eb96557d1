// The command line of both programs.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace app {

enum class Command { Run, Check, Explain };

struct Options {
    std::string folder;   // the program folder, absolute
    std::string journal;  // empty: no journal

    // kvdayend alone
    bool list = false;
    bool all = false;
    bool unattended = false;
    std::vector<std::string> select;

    // Of a command; a run where there is none.
    Command command = Command::Run;
    bool json = false;
    std::vector<std::string> names;  // check: display names
    std::string code;                // explain
};

enum class Program { Window, Terminal };

// Either the options, or the exit status with which to end (0 after --help and --version, 2 after
// wrong usage, which is told on standard error).
struct ParsedOptions {
    std::optional<Options> options;
    int exitStatus = 0;
};

// Relative paths are taken from the current directory, before start-up changes it.
[[nodiscard]] ParsedOptions ParseOptions(Program program, int argc, const char* const* argv);

}  // namespace app
