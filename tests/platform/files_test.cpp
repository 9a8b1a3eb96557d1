#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/replace_beginning.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/no_files.h"
#include "tests/support/platform/temp_folder.h"

namespace platform {
namespace {

using support::ExpectError;
using support::TempFolder;
using Names = std::vector<std::string>;

TEST(ResolvePath, TakesTheSpellingOnDiskPartByPart) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "Kjøp");
    folder.Write("Kjøp/Bilag.txt", "");
    folder.Write("Kjøp/b", "");
    folder.Write("Kjøp/B", "");
    const std::string root = folder.Path().string();
    const struct {
        std::string given, expected;
    } cases[] = {
        {R"(\KJØP\bilag.TXT)", "/Kjøp/Bilag.txt"},      {"/kjøp/b", "/Kjøp/b"},
        {R"(\kjøp\..//Kjøp\.\B)", "/Kjøp/../Kjøp/./B"}, {"/KJØP/Ny Fil.TXT", "/Kjøp/Ny Fil.TXT"},
        {"/KJØP/BILAG.TXT  ", "/Kjøp/Bilag.txt"},       {"/KJØP/", "/Kjøp/"},
        {"/Ingen/Bilag.txt", "/Ingen/Bilag.txt"},
    };
    for (const auto& [given, expected] : cases) {
        EXPECT_EQ(ResolvePath(root + given).string(), root + expected);
    }
    EXPECT_EQ(ResolvePath(""), "");
}

TEST(ResolvePath, AmongSeveralSpellingsTakesTheFirst) {
    const TempFolder folder;
    folder.Write("bilag.txt", "");
    folder.Write("Bilag.txt", "");
    EXPECT_EQ(ResolvePath(folder.File("BILAG.TXT")), folder.File("Bilag.txt"));
}

TEST(MatchesPattern, ComparesCharactersWithoutCase) {
    const struct {
        std::string name, patterns;
        bool matches;
    } cases[] = {
        {"0001DayEndSales.XML", "*dayendsales.xml", true},
        {"0001DayEndSales.XML.ferdig", "*DayEndSales.XML", false},
        {"Bø.txt", "B?.TXT", true},
        {"BÆØÅ", "*?ø?", true},
        {"b", "b?", false},
        {"a.csv", "*.txt ; *.csv", true},
        {"aXbXc", "a*b*c*", true},
        {"abcab", "*ab?", false},
        {"a", "", false},
        {"a", " ; ", false},
        {"\xE6\xE5", "??", true},  // no UTF-8
        {std::string(5000, 'a'), "*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b", false},
    };
    for (const auto& [name, patterns, matches] : cases) {
        EXPECT_EQ(MatchesPattern(name, patterns), matches) << name << " / " << patterns;
    }
}

TEST(ListFiles, GivesFilesByUpperCaseWithoutFolders) {
    const TempFolder folder;
    for (const char* name : {"b.xml", "A.XML", "a.xml", "_.xml", "Å.xml", "x.txt", "\xF8.xml"}) {
        folder.Write(name, "");
    }
    std::filesystem::create_directory(folder.Path() / "c.xml");
    std::filesystem::create_symlink("x.txt", folder.Path() / "link.xml");
    std::filesystem::create_symlink("gone", folder.Path() / "broken.xml");
    EXPECT_EQ(ListFiles(folder.Path().string(), "*.XML"),
              (Names{"A.XML", "a.xml", "b.xml", "link.xml", "_.xml", "Å.xml", "\xF8.xml"}));
    EXPECT_EQ(ListFiles(folder.Path().string() + "\\", ""), Names{});
    ExpectError(76, [&] { return ListFiles(folder.File("ingen"), "*"); });
    ExpectError(76, [&] { return ListFiles(folder.File("x.txt"), "*"); });
}

TEST(MoveFile, ReplacesTheTargetUnderItsOwnSpelling) {
    const TempFolder folder;
    folder.Write("Fra.xml", "ny");
    folder.Write("Til.xml", "gammel");
    MoveFile(folder.File("FRA.XML"), folder.File("TIL.XML"));
    EXPECT_EQ(folder.Read("Til.xml"), "ny");
    EXPECT_FALSE(folder.Has("Fra.xml"));
    ExpectError(53, [&] { MoveFile(folder.File("Fra.xml"), folder.File("Til.xml")); });
    ExpectError(76, [&] { MoveFile(folder.File("Til.xml"), folder.File("ingen/Til.xml")); });
    EXPECT_EQ(folder.Read("Til.xml"), "ny");
}

TEST(BehindLink, IsWhatALinkMeansAlsoWhereThereIsNothingYet) {
    namespace fs = std::filesystem;
    const TempFolder folder;
    fs::create_directory(folder.Path() / "import");
    fs::create_symlink("import/ut.txt", folder.Path() / "en.txt");
    fs::create_symlink(folder.Path() / "en.txt", folder.Path() / "to.txt");
    fs::create_symlink("rundt.txt", folder.Path() / "rundt.txt");
    const fs::path target = folder.Path() / "import/ut.txt";
    EXPECT_EQ(BehindLink(folder.File("to.txt")), target);
    folder.Write("import/ut.txt", "");
    EXPECT_EQ(BehindLink(folder.File("to.txt")), target);
    EXPECT_EQ(BehindLink(target), target);
    EXPECT_EQ(BehindLink("ingen.txt"), "ingen.txt");
    EXPECT_EQ(BehindLink(folder.File("rundt.txt")), folder.File("rundt.txt"));
}

TEST(ReplaceBeginning, KeepsTheRestAndTellsWhereItBegins) {
    const TempFolder folder;
    const std::string large(300'000, 'x');
    folder.Write("ut.tmp", "mandag|dag");
    folder.Write("ut.txt", large);
    EXPECT_EQ(ReplaceBeginning(folder.File("ut.tmp"), 7, "", folder.File("ut.txt")), large.size());
    EXPECT_TRUE(folder.Read("ut.tmp") == large + "dag");
    EXPECT_EQ(ReplaceBeginning(folder.File("ut.tmp"), large.size(), "7;6;", ""), 4U);
    EXPECT_EQ(folder.Read("ut.tmp"), "7;6;dag");
    ExpectError(53, [&] { ReplaceBeginning(folder.File("ut.tmp"), 4, "", folder.File("borte")); });
    EXPECT_EQ(folder.Read("ut.tmp"), "7;6;dag");
    EXPECT_EQ(ListFiles(folder.Path().string(), "*"), (Names{"ut.tmp", "ut.txt"}));
}

TEST(Files, TellWhatIsMissing) {
    const TempFolder folder;
    folder.Write("Data.mdb", "");
    EXPECT_TRUE(FileExists(folder.File("DATA.MDB")));
    EXPECT_FALSE(FileExists(folder.Path().string()));
    RequireWritableFolderOf(folder.File("ny.tmp"));
    const std::string text =
        ExpectError(76, [&] { RequireWritableFolderOf(folder.File("ingen/ny.tmp")); });
    EXPECT_NE(text.find(folder.File("ingen")), std::string::npos) << text;
    ExpectError(76, [&] { ChangeDirectory(folder.File("Data.mdb")); });
    DeleteFile(folder.File("data.mdb"));
    ExpectError(53, [&] { DeleteFile(folder.File("data.mdb")); });
}

TEST(MoveFile, KeepsLinkOwnerAndModeOfTheFileThatItReplaces) {
    namespace fs = std::filesystem;
    const TempFolder folder;
    folder.Write("real.txt", "old");
    folder.Write("new.tmp", "new");
    fs::create_symlink("real.txt", folder.Path() / "bilag.txt");
    fs::permissions(folder.Path() / "real.txt", fs::perms(0664));
    MoveFile(folder.File("new.tmp"), folder.File("bilag.txt"));
    EXPECT_TRUE(fs::is_symlink(folder.Path() / "bilag.txt"));
    EXPECT_EQ(folder.Read("real.txt"), "new");
    EXPECT_EQ(fs::status(folder.Path() / "real.txt").permissions(), fs::perms(0664));
}

TEST(Files, WhatIsNoFileIsNeitherReadNorReplaced) {
    const TempFolder folder;
    folder.Write("fra.txt", "");
    for (const std::string& name : support::MakeNoFiles(folder)) {
        SCOPED_TRACE(name);
        ExpectError(75, [&] { MoveFile(folder.File("fra.txt"), folder.File(name)); });
        for (const std::string& text :
             {ExpectError(75, [&] { return ReadWholeFile(folder.File(name)); }),
              ExpectError(75, [&] { RequirePlaceForFile(folder.File(name)); })}) {
            EXPECT_NE(text.find(name), std::string::npos) << text;
        }
    }
    std::filesystem::create_symlink("ny.txt", folder.File("ny.lenke"));
    folder.Write("fil", "");
    for (const char* name : {"ingen", "fil", "ny.lenke"})
        RequirePlaceForFile(folder.File(name));
}

TEST(WriteWholeFile, RemovesWhatEndedProcessesLeftAndNothingElse) {
    const TempFolder folder;
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    const std::string gone = std::to_string(child);
    const std::string here = std::to_string(::getpid());
    const Names kept = {"b.ini." + gone + "-0.new",
                        "a.ini." + here + "-7.new",
                        "a.ini.1-0.new",
                        "a.ini." + gone + "-0.news",
                        "a.ini." + gone + "-.new",
                        "a.ini." + gone + ".new",
                        "a.ini.0-0.new"};
    for (const std::string& name : kept)
        folder.Write(name, "");
    folder.Write("a.ini." + gone + "-0.new", "");
    folder.Write("a.ini." + gone + "-12.new", "");
    WriteWholeFile(folder.File("a.ini"), "x");
    for (const std::string& name : kept)
        EXPECT_TRUE(folder.Has(name)) << name;
    EXPECT_EQ(ListFiles(folder.Path().string(), "*").size(), kept.size() + 1);
}

TEST(Files, AWriteProtectedFolderIsError75) {
    if (::geteuid() == 0) GTEST_SKIP() << "the superuser may write everywhere";
    const TempFolder folder;
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0500), 0);
    ExpectError(75, [&] { RequireWritableFolderOf(folder.File("ny.tmp")); });
}

}  // namespace
}  // namespace platform
