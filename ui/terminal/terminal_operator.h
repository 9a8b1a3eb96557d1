// The operator at a terminal: notices and questions as lines, answers from standard input.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "platform/operator.h"

namespace ui::terminal {

// Where the operator's lines come from and go to.
struct TerminalStreams {
    std::istream& input;
    std::ostream& output;
    std::ostream& errors;
};

enum class Attendance {
    Person,  // standard input is a terminal: notices wait for Enter, passwords are not echoed
    Script,  // answers are read, nothing waits
    Nobody,  // nothing is read: default buttons and default texts
};

class TerminalOperator : public platform::Operator {
  public:
    TerminalOperator(TerminalStreams streams, Attendance attendance);

    void Show(const platform::Notice& notice) override;
    [[nodiscard]] platform::Answer Ask(const platform::Question& question) override;
    [[nodiscard]] std::string Prompt(const platform::InputRequest& request) override;
    void ShowStatusLine(std::string_view line) override;
    void DayEndCommandStarted(std::string_view commandLine) override;
    void ReportFatal(const platform::RuntimeError& error) override;

    // One line of input after `prompt`; nothing at its end, and where nobody is there.
    [[nodiscard]] std::optional<std::string> ReadLine(const std::string& prompt);

    // A line that belongs to no box.
    void Print(std::string_view line);

  private:
    TerminalStreams streams_;
    Attendance attendance_;
};

}  // namespace ui::terminal
