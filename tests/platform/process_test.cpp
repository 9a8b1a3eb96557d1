#include "platform/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>

#include "platform/files.h"
#include "tests/support/platform/temp_folder.h"

namespace platform {
namespace {

using support::TempFolder;

class ProcessTest : public testing::Test {
  protected:
    void WriteProgram(std::string_view name, std::string_view script) {
        folder_.Write(name, script);
        std::filesystem::permissions(folder_.Path() / name, std::filesystem::perms::owner_all);
    }

    // What the started program has put into place as "ut"; a program that never does fails here.
    std::string Result() {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!folder_.Has("ut") && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        const std::string result = folder_.Read("ut");
        DeleteFile(folder_.File("ut"));
        return result;
    }

    TempFolder folder_;
    SystemProcessStarter starter_;
};

constexpr std::string_view kTellArguments =
    "#!/bin/sh\ncd \"${0%/*}\"\nfor a in \"$@\"; do echo \"<$a>\" >>ut.ny; done\nmv ut.ny ut\n";

TEST_F(ProcessTest, HandsTheWordsOverWithoutAShell) {
    WriteProgram("Dag Slutt.sh", kTellArguments);
    const std::string root = folder_.Path().string();
    EXPECT_TRUE(
        starter_.Start("  \"" + root + R"(\DAG slutt.SH" /x  'to ord'"" "" $HOME;* "a 'b c)"));
    EXPECT_EQ(Result(), "</x>\n<to ord>\n<>\n<$HOME;*>\n<a 'b c>\n");
}

TEST_F(ProcessTest, FindsTheProgramHereAndOnThePath) {
    WriteProgram("slutt.sh", kTellArguments);
    const std::filesystem::path before = std::filesystem::current_path();
    ChangeDirectory(folder_.Path().string());
    EXPECT_TRUE(starter_.Start("Slutt.sh her"));
    EXPECT_EQ(Result(), "<her>\n");
    folder_.Write("sh", "no program");
    EXPECT_TRUE(starter_.Start("sh -c 'echo sti >ut.ny; mv ut.ny ut'"));
    EXPECT_EQ(Result(), "sti\n");
    ChangeDirectory(before.string());
}

TEST_F(ProcessTest, TellsThatNothingWasStarted) {
    folder_.Write("tekst.txt", "#!/bin/sh\n");
    WriteProgram("tom.sh", "no program format");
    WriteProgram("tolk.sh", "#!/ingen/tolk\n");
    const std::string root = folder_.Path().string();
    for (const std::string& command : {std::string(), std::string("  "), std::string("\"\""), root,
                                       root + "/tekst.txt", root + "/tom.sh", root + "/tolk.sh",
                                       root + "/ingen", std::string("ingen-slik-kommando")}) {
        EXPECT_FALSE(starter_.Start(command)) << command;
    }
}

TEST_F(ProcessTest, TheProgramInheritsNothingAndLeavesNoZombie) {
    WriteProgram(
        "filer.sh",
        "#!/bin/sh\ncd \"${0%/*}\"\n"
        "files=$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2)\necho \"$files\" >ut.ny\n"
        "test -e /proc/$$/fd/$1 && echo arvet >>ut.ny\nmv ut.ny ut\n");
    const int open = ::fcntl(STDERR_FILENO, F_DUPFD, 50);  // without close-on-exec
    ASSERT_GE(open, 50);
    EXPECT_TRUE(starter_.Start(folder_.File("filer.sh") + " " + std::to_string(open)));
    EXPECT_EQ(Result(), "/dev/null\n/dev/null\n/dev/null\n");
    ::close(open);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

// What a signal does that this process ignores or not, as the system tells it.
constexpr unsigned long kSignalsOfWriting = 1UL << (SIGPIPE - 1) | 1UL << (SIGXFSZ - 1);

TEST_F(ProcessTest, AProgramWithoutStandardFilesWritesIntoNoneOfItsOwn) {
    const pid_t child = ::fork();
    if (child == 0) {
        for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::close(standard);
        PrepareProcess();
        for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            if (::fcntl(standard, F_GETFD) < 0) ::_exit(1);
        }
        ::_exit(::open("/dev/null", O_RDONLY) > STDERR_FILENO ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "a file of its own is a standard file";
}

TEST_F(ProcessTest, WritingInVainIsAnErrorHereAndASignalToTheStartedProgram) {
    PrepareProcess();
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    ::close(pipe[0]);
    EXPECT_EQ(::write(pipe[1], "x", 1), -1);
    EXPECT_EQ(errno, EPIPE);
    ::close(pipe[1]);

    WriteProgram("signaler.sh",
                 "#!/bin/sh\ncd \"${0%/*}\"\n"
                 "sed -n 's/^SigIgn:[[:blank:]]*//p' /proc/$$/status >ut.ny\nmv ut.ny ut\n");
    EXPECT_TRUE(starter_.Start(folder_.File("signaler.sh")));
    EXPECT_EQ(std::stoul(Result(), nullptr, 16) & kSignalsOfWriting, 0U);
}

}  // namespace
}  // namespace platform
