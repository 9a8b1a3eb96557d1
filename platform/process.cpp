#include "platform/process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/descriptor.h"
#include "platform/files.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr const char* kNullDevice = "/dev/null";
constexpr std::array kStandard = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};
constexpr std::array kSignalsOfWriting = {SIGPIPE, SIGXFSZ};

// A quotation mark that is never closed holds the rest of the line together.
std::vector<std::string> SplitCommandLine(std::string_view commandLine) {
    std::vector<std::string> words;
    std::optional<std::string> word;
    char quote = '\0';
    for (const char each : commandLine) {
        if (quote != '\0') {
            if (each == quote) {
                quote = '\0';
            } else {
                *word += each;
            }
        } else if (each == ' ' || each == '\t') {
            if (word) words.push_back(*std::exchange(word, std::nullopt));
        } else {
            if (!word) word.emplace();
            if (each == '"' || each == '\'') {
                quote = each;
            } else {
                *word += each;
            }
        }
    }
    if (word) words.push_back(*std::move(word));
    return words;
}

bool IsProgram(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored) && ::access(path.c_str(), X_OK) == 0;
}

fs::path FindProgram(const std::string& name) {
    std::error_code ignored;
    const fs::path here = fs::absolute(ResolvePath(name), ignored);
    if (IsProgram(here)) return here;
    const char* const searched = std::getenv("PATH");
    if (name.find_first_of("/\\") != std::string::npos || searched == nullptr) return {};
    const std::string_view folders = searched;
    for (std::size_t start = 0; start <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', start), folders.size());
        const fs::path folder = folders.substr(start, end - start);
        if (!folder.empty() && IsProgram(folder / name)) return folder / name;
        start = end + 1;
    }
    return {};
}

// Under a number above those of the standard input and outputs, which the new program's take.
Descriptor AboveStandard(const Descriptor& file) {
    return Descriptor(::fcntl(file.Get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

// From here to the exec only what is safe between fork and exec: other threads of this program may
// have held locks when it was copied.
[[noreturn]] void Fail(int report) {
    const int failure = errno;
    const ssize_t written = ::write(report, &failure, sizeof failure);
    ::_exit(written == sizeof failure ? 127 : 126);
}

[[noreturn]] void Execute(const char* program, char* const* arguments, int null, int report) {
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int signal : kSignalsOfWriting)
        ::signal(signal, SIG_DFL);
    for (const int standard : kStandard) {
        if (::dup2(null, standard) < 0) Fail(report);
    }
    // Databases and order files stay this program's own, whoever opened them.
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    ::execv(program, arguments);
    Fail(report);
}

// The program is a grandchild, so that the system takes leave of it when it ends: this one may run
// for weeks and waits for nobody.
[[noreturn]] void ExecuteDetached(const char* program, char* const* arguments, int null,
                                  int report) {
    ::setsid();
    const pid_t grandchild = ::fork();
    if (grandchild < 0) Fail(report);
    if (grandchild > 0) ::_exit(0);
    Execute(program, arguments, null, report);
}

// The pipe closes with a word where the start failed, without one when the program takes over.
bool StartDetached(const char* program, char* const* arguments) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) return false;
    const Descriptor outcome(pipe[0]);
    Descriptor report = AboveStandard(Descriptor(pipe[1]));
    const Descriptor null = AboveStandard(Descriptor(::open(kNullDevice, O_RDWR | O_CLOEXEC)));
    if (!report.IsOpen() || !null.IsOpen()) return false;
    const pid_t child = ::fork();
    if (child < 0) return false;
    if (child == 0) ExecuteDetached(program, arguments, null.Get(), report.Get());
    report.Close();
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    std::string failure;
    return ReadAll(outcome.Get(), failure) == 0 && failure.empty();
}

}  // namespace

void PrepareProcess() {
    // From the lowest number on, which is the one that opening gives.
    for (const int standard : kStandard) {
        if (::fcntl(standard, F_GETFD) < 0) (void)::open(kNullDevice, O_RDWR);
    }
    for (const int signal : kSignalsOfWriting)
        ::signal(signal, SIG_IGN);
}

bool SystemProcessStarter::Start(std::string_view commandLine) {
    std::vector<std::string> words = SplitCommandLine(commandLine);
    if (words.empty()) return false;
    const fs::path program = FindProgram(words.front());
    if (program.empty()) return false;
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    return StartDetached(program.c_str(), arguments.data());
}

bool CanBeStarted(std::string_view commandLine) {
    const std::vector<std::string> words = SplitCommandLine(commandLine);
    return !words.empty() && !FindProgram(words.front()).empty();
}

}  // namespace platform
