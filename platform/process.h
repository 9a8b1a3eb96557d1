// This process as the system hands it over, and starting another program without waiting for it.
#pragma once

#include <string_view>

namespace platform {

// Called first in a program. A closed standard input or output is opened on the null device: the
// first file of the shop would take its number, and what is printed would be written into it. A
// reader that goes away and a file that may not grow further become errors of the write (57, 61):
// a signal would end the program in the middle of a day without a word.
void PrepareProcess();

class ProcessStarter {
  public:
    virtual ~ProcessStarter() = default;

    [[nodiscard]] virtual bool Start(std::string_view commandLine) = 0;  // false: not started
};

// Splits the command line at blanks (quotation marks, single or double, hold a word together) and
// executes the program directly, without a shell: a path with `/` or `\`, a file of the current
// directory, or a program on PATH. The program's input and outputs are /dev/null,
// and it gets the signals as they were before PrepareProcess.
class SystemProcessStarter : public ProcessStarter {
  public:
    [[nodiscard]] bool Start(std::string_view commandLine) override;
};

// Whether there is a program that SystemProcessStarter would start with that command line.
[[nodiscard]] bool CanBeStarted(std::string_view commandLine);

}  // namespace platform
