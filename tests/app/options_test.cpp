#include "app/options.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

app::ParsedOptions Parse(std::vector<const char*> arguments,
                         app::Program program = app::Program::Terminal) {
    arguments.insert(arguments.begin(), "program");
    return app::ParseOptions(program, static_cast<int>(arguments.size()), arguments.data());
}

}  // namespace

TEST(Options, NamesAreTakenAsTheyStand) {
    const auto parsed = Parse({"--select", "[K1]", "--select", "A,B", "--select=[]", "--select",
                               "<Uten navn>", "--all", "--unattended"});
    ASSERT_TRUE(parsed.options);
    EXPECT_EQ(parsed.options->select,
              (std::vector<std::string>{"[K1]", "A,B", "[]", "<Uten navn>"}));
    EXPECT_TRUE(parsed.options->all && parsed.options->unattended);
}

TEST(Options, RelativePathsAreThoseOfTheCallersDirectory) {
    const auto parsed = Parse({"--folder", "shop", "--journal", "a/b"});
    ASSERT_TRUE(parsed.options);
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(parsed.options->folder, here + "/shop");
    EXPECT_EQ(parsed.options->journal, here + "/a/b");
    EXPECT_EQ(Parse({}).options->journal, "");
    EXPECT_TRUE(std::filesystem::is_directory(Parse({}).options->folder));
}

TEST(Options, ACommandHasOptionsOfItsOwn) {
    const auto check = Parse({"check", "[K1]", "a,b", "--json", "--folder", "/shop"});
    ASSERT_TRUE(check.options);
    EXPECT_EQ(check.options->command, app::Command::Check);
    EXPECT_EQ(check.options->names, (std::vector<std::string>{"[K1]", "a,b"}));
    EXPECT_EQ(check.options->folder, "/shop");
    EXPECT_TRUE(check.options->json);
    const auto explain = Parse({"explain", "K302"});
    ASSERT_TRUE(explain.options);
    EXPECT_EQ(explain.options->code, "K302");
    const auto run = Parse({"--select", "check"});
    ASSERT_TRUE(run.options);
    EXPECT_EQ(run.options->command, app::Command::Run) << "a data set may be called so";
    for (const std::vector<const char*>& wrong : {std::vector<const char*>{"check", "--all"},
                                                  {"--list", "check"},
                                                  {"explain"},
                                                  {"check", "explain", "--unattended"}}) {
        EXPECT_EQ(Parse(wrong).exitStatus, 2) << wrong[0];
    }
    EXPECT_EQ(Parse({"check"}, app::Program::Window).exitStatus, 2);
}

TEST(Options, WrongUsageIsStatus2) {
    for (const std::vector<const char*>& wrong :
         {std::vector<const char*>{"--no-such-option"}, {"--select"}, {"name"}}) {
        const auto parsed = Parse(wrong);
        EXPECT_FALSE(parsed.options);
        EXPECT_EQ(parsed.exitStatus, 2);
    }
    EXPECT_EQ(Parse({"--all"}, app::Program::Window).exitStatus, 2);
    EXPECT_EQ(Parse({"--version"}).exitStatus, 0);
    EXPECT_FALSE(Parse({"--help"}).options);
}
