// Starting another program without waiting for it.
#pragma once

#include <string_view>

namespace platform {

class ProcessStarter {
  public:
    virtual ~ProcessStarter() = default;

    [[nodiscard]] virtual bool Start(std::string_view commandLine) = 0;  // false: not started
};

// Splits the command line at blanks (quotation marks, single or double, hold a word together) and
// executes the program directly, without a shell: a path with `/` or `\`, a file of the current
// directory, or a program on PATH. The program's input and outputs are /dev/null.
class SystemProcessStarter : public ProcessStarter {
  public:
    [[nodiscard]] bool Start(std::string_view commandLine) override;
};

// Whether there is a program that SystemProcessStarter would start with that command line.
[[nodiscard]] bool CanBeStarted(std::string_view commandLine);

}  // namespace platform
