#include "ui/terminal/terminal_operator.h"

#include <poll.h>
#include <pthread.h>
#include <sys/signalfd.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <istream>
#include <ostream>

#include "platform/descriptor.h"
#include "platform/text.h"
#include "ui/terminal/printable.h"

namespace ui::terminal {

namespace {

using platform::Answer;

// Switches the echo of the terminal off for as long as it lives. Signals that end or stop the
// program wait meanwhile: they would leave the person's terminal silent.
class SilentInput {
  public:
    explicit SilentInput(bool wanted) {
        isSilent_ = wanted && tcgetattr(STDIN_FILENO, &before_) == 0;
        if (!isSilent_) return;
        sigset_t held = EndingSignals();
        sigaddset(&held, SIGTSTP);
        pthread_sigmask(SIG_BLOCK, &held, &signalsBefore_);
        termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    ~SilentInput() {
        if (!isSilent_) return;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
        pthread_sigmask(SIG_SETMASK, &signalsBefore_, nullptr);
    }
    SilentInput(const SilentInput&) = delete;
    SilentInput& operator=(const SilentInput&) = delete;

    [[nodiscard]] bool IsSilent() const { return isSilent_; }

    // Waits for a line, or for a signal that ends the program: false, and it acts as soon as the
    // echo is back. Only Ctrl-Z waits for Enter.
    [[nodiscard]] static bool AwaitsLine() {
        const sigset_t ending = EndingSignals();
        const platform::Descriptor signals(signalfd(-1, &ending, SFD_CLOEXEC));
        std::array<pollfd, 2> awaited = {pollfd{STDIN_FILENO, POLLIN, 0},
                                         pollfd{signals.Get(), POLLIN, 0}};
        while (poll(awaited.data(), awaited.size(), -1) < 0 && errno == EINTR) {
        }
        return awaited[1].revents == 0;
    }

  private:
    // Without those that are ignored, as under nohup: they wait too, and then do nothing.
    static sigset_t EndingSignals() {
        sigset_t ending;
        sigemptyset(&ending);
        for (const int signal : {SIGINT, SIGQUIT, SIGTERM, SIGHUP}) {
            struct sigaction action {};
            const bool isIgnored =
                sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
            if (!isIgnored) sigaddset(&ending, signal);
        }
        return ending;
    }

    termios before_{};
    sigset_t signalsBefore_{};
    bool isSilent_ = false;
};

// Norwegian and English words, whatever the language of the terminal.
std::optional<Answer> AnswerOf(const std::string& line, Answer defaultAnswer) {
    const std::string word = platform::Upper(platform::Trim(line));
    if (word.empty()) return defaultAnswer;
    if (word == "J" || word == "JA" || word == "Y" || word == "YES") return Answer::Yes;
    if (word == "N" || word == "NEI" || word == "NO") return Answer::No;
    return std::nullopt;
}

}  // namespace

TerminalOperator::TerminalOperator(TerminalStreams streams, Attendance attendance)
    : streams_(streams), attendance_(attendance) {}

void TerminalOperator::Show(const platform::Notice& notice) {
    if (notice.title) Print(*notice.title);
    Print(notice.text);
    if (attendance_ == Attendance::Person) (void)ReadLine("[Enter] ");
}

Answer TerminalOperator::Ask(const platform::Question& question) {
    if (question.title) Print(*question.title);
    const std::string choice = question.defaultAnswer == Answer::Yes ? " [J/n] " : " [j/N] ";
    std::optional<Answer> answer;
    while (!answer) {
        answer = AnswerOf(ReadLine(question.text + choice).value_or(""), question.defaultAnswer);
    }
    return *answer;
}

std::string TerminalOperator::Prompt(const platform::InputRequest& request) {
    Print(request.title);
    const std::string shownDefault =
        request.defaultText.empty() ? "" : " [" + request.defaultText + "]";
    if (attendance_ == Attendance::Nobody) {
        Print(request.text + shownDefault);
        return request.defaultText;
    }
    std::optional<std::string> line;
    {
        const SilentInput silent(request.isPassword && attendance_ == Attendance::Person);
        streams_.output << Printable(request.text + shownDefault + " ") << std::flush;
        if (!silent.IsSilent() || SilentInput::AwaitsLine()) line = ReadLine("");
        if (silent.IsSilent()) Print("");
    }
    if (!line) return {};  // the end of input cancels
    return line->empty() ? request.defaultText : *line;
}

void TerminalOperator::ShowStatusLine(std::string_view line) {
    Print(PrintableLine(line));
}

void TerminalOperator::DayEndCommandStarted(std::string_view commandLine) {
    Print("Startet: " + std::string(commandLine));
}

void TerminalOperator::ReportFatal(const platform::RuntimeError& error) {
    streams_.errors << "Run-time error '" << error.Number() << "':\n\n"
                    << Printable(error.Description()) << std::endl;
}

std::optional<std::string> TerminalOperator::ReadLine(const std::string& prompt) {
    streams_.output << Printable(prompt) << std::flush;
    std::string line;
    const bool hasLine = attendance_ != Attendance::Nobody && std::getline(streams_.input, line);
    // Only a person at a terminal has ended the line by pressing Enter.
    if (attendance_ != Attendance::Person || !hasLine) streams_.output << std::endl;
    if (!hasLine) return std::nullopt;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
}

void TerminalOperator::Print(std::string_view line) {
    streams_.output << Printable(line) << std::endl;
}

}  // namespace ui::terminal
