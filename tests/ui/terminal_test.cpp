#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/ui/test_shop.h"
#include "ui/terminal/printable.h"
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

    // The data sets that these lines of input select from a list.
    std::string Choose(const std::string& lines,
                       const std::vector<std::string>& names = {"A", "B", "C"}) {
        input.str(lines);
        input.clear();
        chosen.clear();
        shop.window.ListDayEnd.clear();
        for (const std::string& name : names)
            shop.window.ListDayEnd.push_back({store::DataSet(name)});
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

TEST_F(Terminal, ShowsControlCharactersWithoutCarryingThemOut) {
    const struct {
        std::string text, shown;
    } cases[] = {
        {"Kasse1 æøå €", "Kasse1 æøå €"},
        {"\x1b[31mRød\x07", "\\x1b[31mRød\\x07"},
        {"a\rb\tc\x7f", "a\\x0db\\x09c\\x7f"},
        {"\u009b2J\u0080\u009f\u00a0", "\\x9b2J\\x80\\x9f\u00a0"},
        {std::string("a\0b", 3), "a\\x00b"},
        {"ingen UTF-8: \xff\x9b \xc2", "ingen UTF-8: \xff\x9b \xc2"},
        {"\\x1b", "\\x1b"},
    };
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(ui::terminal::Printable(text), shown);
        EXPECT_EQ(ui::terminal::PrintableLine(text), shown);
    }
    EXPECT_EQ(ui::terminal::Printable("a\nb"), "a\nb");
    EXPECT_EQ(ui::terminal::PrintableLine("a\nb"), "a\\x0ab");

    ui::terminal::TerminalOperator terminal({input, output, errors}, Attendance::Script);
    const std::string name = "K\x1b[2J";
    terminal.ShowStatusLine(name + "\nForfalsket");
    terminal.Show({name, name, Icon::None});
    (void)terminal.Ask({name, name, Icon::Question, Answer::No});
    (void)terminal.Prompt({name, name, name, false});
    terminal.DayEndCommandStarted(name);
    terminal.ReportFatal(platform::RuntimeError(75, name));
    EXPECT_EQ((output.str() + errors.str()).find('\x1b'), std::string::npos);
    EXPECT_NE(output.str().find("K\\x1b[2J\\x0aForfalsket\n"), std::string::npos) << output.str();
}

TEST_F(Terminal, ANameWithControlCharactersIsSelectedRawOrAsItIsShown) {
    const std::string raw = "A\x1b[2J";
    for (const std::string& name : {raw, std::string("A\\x1b[2J")}) {
        selection.names = {name};
        EXPECT_EQ(Choose("", {"A", raw}), raw);
        EXPECT_EQ(exitStatus, 0);
    }
    EXPECT_EQ(Choose("", {raw, "A\\x1b[2J"}), "A\\x1b[2J") << "the exact name first";
    selection.names.clear();
    EXPECT_EQ(Choose("2\n", {"A", raw}), raw);
    EXPECT_NE(output.str().find("  2  A\\x1b[2J\n"), std::string::npos) << output.str();
}
