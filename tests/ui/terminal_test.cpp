#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/ui/test_shop.h"
#include "ui/terminal/terminal_face.h"

using platform::Answer;
using platform::Icon;
using ui::terminal::Attendance;

namespace {

class NoProcesses : public platform::ProcessStarter {
  public:
    bool Start(std::string_view /*commandLine*/) override { return false; }
};

class Terminal : public testing::Test {
  protected:
    Answer Ask(const std::string& lines, Answer defaultAnswer,
               Attendance attendance = Attendance::Script) {
        input.str(lines);
        input.clear();
        ui::terminal::TerminalOperator terminal({input, output, errors}, attendance);
        return terminal.Ask({std::nullopt, "Skal?", Icon::Question, defaultAnswer});
    }

    // The data sets that these lines of input select from a list of three.
    std::string Choose(const std::string& lines) {
        input.str(lines);
        input.clear();
        chosen.clear();
        shop.window.ListDayEnd = {
            {store::DataSet("A")}, {store::DataSet("B")}, {store::DataSet("C")}};
        ui::terminal::TerminalOperator terminal({input, output, errors}, Attendance::Script);
        NoProcesses noProcesses;
        ui::RunDriver driver(shop.settings, shop.window, shop.runState,
                             {[this](const store::DataSet& dataSet) {
                                  chosen += dataSet.Name();
                                  return false;
                              },
                              nullptr},
                             shop.theOperator, shop.clock, noProcesses);
        exitStatus = ui::terminal::RunOnce(selection, shop.window, driver, terminal);
        return chosen;
    }

    support::TestShop shop;
    ui::terminal::Selection selection;
    std::string chosen;
    int exitStatus = -1;
    std::istringstream input;
    std::ostringstream output;
    std::ostringstream errors;
};

}  // namespace

TEST_F(Terminal, AnswersToAQuestion) {
    for (const char* yes : {"j\n", "JA\n", " y \n", "Yes\r\n", "kanskje\n?\nja\n"}) {
        EXPECT_EQ(Ask(yes, Answer::No), Answer::Yes) << yes;
    }
    for (const char* no : {"n\n", "NEI\n", "no"})
        EXPECT_EQ(Ask(no, Answer::Yes), Answer::No) << no;
    for (const Answer byDefault : {Answer::Yes, Answer::No}) {
        EXPECT_EQ(Ask("\n", byDefault), byDefault);
        EXPECT_EQ(Ask("", byDefault), byDefault);
        EXPECT_EQ(Ask("j\nn\n", byDefault, Attendance::Nobody), byDefault);
    }
}

TEST_F(Terminal, AnswersToAPrompt) {
    input.str("1920\n\n");
    ui::terminal::TerminalOperator terminal({input, output, errors}, Attendance::Script);
    const platform::InputRequest request = {"Kontonummer", "Hvilken?", "9999", false};
    EXPECT_EQ(terminal.Prompt(request), "1920");
    EXPECT_EQ(terminal.Prompt(request), "9999");
    EXPECT_EQ(terminal.Prompt(request), "") << "the end of input cancels";
    ui::terminal::TerminalOperator nobody({input, output, errors}, Attendance::Nobody);
    EXPECT_EQ(nobody.Prompt(request), "9999");
}

TEST_F(Terminal, ChoiceOfDataSets) {
    EXPECT_EQ(Choose("1, 3\n"), "AC");
    EXPECT_EQ(Choose("3 1 1\n"), "AC");
    EXPECT_EQ(Choose("A\n"), "ABC");
    EXPECT_EQ(Choose("4\n0\nb\n2\n"), "B");
    EXPECT_EQ(Choose("\n"), "");
    EXPECT_EQ(Choose(""), "");
    EXPECT_EQ(exitStatus, 0);
}

TEST_F(Terminal, ANameThatIsNotWaitingGivesStatus1) {
    selection.names = {"C", "b", "A"};
    EXPECT_EQ(Choose(""), "AC");
    EXPECT_EQ(exitStatus, 1);
    selection = {true, {"B"}};
    EXPECT_EQ(Choose(""), "ABC");
    EXPECT_EQ(exitStatus, 0);
}
