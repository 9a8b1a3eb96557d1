#include "platform/profile_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/no_files.h"
#include "tests/support/platform/temp_folder.h"

namespace platform {
namespace {

using support::ExpectError;
using support::TempFolder;
using namespace std::string_literals;

class ProfileFileTest : public testing::Test {
  protected:
    std::string Get(std::string_view section, std::string_view key, int size = 255) {
        count_ = profile_.GetString(section, key, "", buffer_, size, file_);
        return buffer_;
    }

    TempFolder folder_;
    ProfileFiles profile_;
    std::string file_ = folder_.File("kv.ini");
    std::string buffer_;
    int count_ = 0;
};

TEST_F(ProfileFileTest, ReadsValuesAsThePlatformDoes) {
    folder_.Write("kv.ini",
                  "\xEF\xBB\xBF[Generelt] ; merknad\r\n"
                  "  Firma \t=  Sj\xF8"
                  "bua = AS \t\r\n"
                  "firma=to\r\n;Skjult=1\r\nTom=\r\nuten\r\n"
                  "A=\" b \"\nB='\"c\"'\nC=\"d\nD=\"\ne=f;g\n"
                  "[ \xC5pent ]\nx=1\n"
                  "[GENERELT]\nandre=1\n"
                  "[siste]\nz=9");
    const struct {
        const char *section, *key, *value;
        int error;
    } cases[] = {
        {"generelt", "FIRMA", "Sjøbua = AS", 0},
        {" Generelt ", " firma ", "Sjøbua = AS", 0},
        {"Generelt", "Skjult", "", 2},
        {"Generelt", ";Skjult", "", 2},
        {"Generelt", "Tom", "", 0},
        {"Generelt", "uten", "", 2},
        {"Generelt", "A", " b ", 0},
        {"Generelt", "B", "\"c\"", 0},
        {"Generelt", "C", "\"d", 0},
        {"Generelt", "D", "\"", 0},
        {"Generelt", "E", "f;g", 0},
        {"Generelt", "andre", "", 2},
        {"åpent", "X", "1", 0},
        {"SISTE", "z", "9", 0},
        {"ingen", "z", "", 2},
    };
    for (const auto& [section, key, value, error] : cases) {
        EXPECT_EQ(Get(section, key), value) << section << "/" << key;
        EXPECT_EQ(profile_.LastError(), error) << section << "/" << key;
    }
}

TEST_F(ProfileFileTest, CutsByCharactersAndGivesTheDefault) {
    folder_.Write("kv.ini", "[s]\nk=" + std::string(300, '\xE5') + "\n");
    EXPECT_EQ(Get("s", "k").size(), 2U * 254);
    EXPECT_EQ(count_, 254);
    EXPECT_EQ(profile_.GetString("s", "ny", "standard", buffer_, 6, file_), 5);
    EXPECT_EQ(buffer_, "stand");
    EXPECT_EQ(profile_.LastError(), 2);
    Get("s", "k", 0);
    EXPECT_EQ(count_, 0);
}

TEST_F(ProfileFileTest, DeliversListsEndedByNuls) {
    folder_.Write("kv.ini", "[en]\r\n a = \"1\" \r\n;x\r\n\r\nb=\r\nuten\r\n[t\xF8]\r\n[]\r\n");
    EXPECT_EQ(profile_.GetSection("EN", buffer_, 100, file_), 14);
    EXPECT_EQ(buffer_, "a=\"1\"\0b=\0uten\0"s);
    EXPECT_EQ(profile_.GetSection("EN", buffer_, 15, file_), 14);
    EXPECT_EQ(profile_.GetSection("EN", buffer_, 14, file_), 12);
    EXPECT_EQ(buffer_, "a=\"1\"\0b=\0ute"s);
    EXPECT_EQ(profile_.GetSection("TØ", buffer_, 100, file_), 0);
    EXPECT_EQ(profile_.LastError(), 0);
    EXPECT_EQ(profile_.GetSection("tre", buffer_, 100, file_), 0);
    EXPECT_EQ(profile_.LastError(), 2);
    EXPECT_EQ(profile_.GetSectionNames(buffer_, 100, file_), 7);
    EXPECT_EQ(buffer_, "en\0tø\0\0"s);
}

TEST_F(ProfileFileTest, WritingChangesOnlyItsLine) {
    const struct {
        const char *before, *section, *key, *value, *after;
    } cases[] = {
        {"", "s", "k", "1", "[s]\r\nk=1\r\n"},
        {"[a]\n K = old \nk=2\n", "A", "k", "new", "[a]\n K = new \nk=2\n"},
        {"[a]\nx=\n\n; b\n[b]\n", "a", "y", "ø", "[a]\nx=\ny=\xF8\n\n; b\n[b]\n"},
        {"[a]\r\nx=1", "a", "y", "2", "[a]\r\nx=1\r\ny=2\r\n"},
        {"; bare\n[a]", "b", "y", "2", "; bare\n[a]\n[b]\ny=2\n"},
        {"[a]\nx=1\r\n\x81\n", "a", "x", " 2", "[a]\nx=\" 2\"\r\n\x81\n"},
        {"[a]\nx=\n", "a", "x", "'q'", "[a]\nx=\"'q'\"\n"},
        {"\xEF\xBB\xBF", "a", "x", "1", "\xEF\xBB\xBF[a]\r\nx=1\r\n"},
    };
    for (const auto& [before, section, key, value, after] : cases) {
        folder_.Write("kv.ini", before);
        EXPECT_TRUE(profile_.WriteString(section, key, value, file_));
        EXPECT_EQ(folder_.Read("kv.ini"), after);
        EXPECT_EQ(Get(section, key), value);
    }
}

TEST_F(ProfileFileTest, WritingASectionReplacesItsEntries) {
    folder_.Write("kv.ini", "[a]\n; om a\nx=1\n;y\nz\n\n[b]\nx=9");
    EXPECT_TRUE(profile_.WriteSection("A", "æ=1\0q=\"2\"\0\0skjult=3\0"s, file_));
    EXPECT_EQ(folder_.Read("kv.ini"), "[a]\n; om a\n\xE6=1\nq=\"2\"\n;y\n\n[b]\nx=9");
    EXPECT_TRUE(profile_.WriteSection("b", "", file_));
    EXPECT_TRUE(profile_.WriteSection("c", "k=v\0"s, file_));
    EXPECT_TRUE(profile_.WriteSection("b", "n=1"s, file_));
    EXPECT_EQ(folder_.Read("kv.ini"), "[a]\n; om a\n\xE6=1\nq=\"2\"\n;y\n\n[b]\nn=1\n[c]\nk=v\n");
}

TEST_F(ProfileFileTest, WritingKeepsModeAndLinkAndLeavesNothingBeside) {
    folder_.Write("ekte.ini", "[a]\n");
    ASSERT_EQ(::chmod(folder_.File("ekte.ini").c_str(), 0640), 0);
    std::filesystem::create_symlink("ekte.ini", folder_.Path() / "kv.ini");
    EXPECT_TRUE(profile_.WriteString("a", "x", "1", folder_.File("KV.INI")));
    EXPECT_FALSE(profile_.WriteString("a", "x", "1\r\n[b]", file_));
    EXPECT_EQ(profile_.LastError(), 31);
    EXPECT_TRUE(std::filesystem::is_symlink(file_));
    EXPECT_EQ(folder_.Read("ekte.ini"), "[a]\nx=1\n");
    struct stat status {};
    ASSERT_EQ(::stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    const std::filesystem::directory_iterator entries(folder_.Path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 2);
}

TEST_F(ProfileFileTest, FailuresLeaveTheSystemsCode) {
    EXPECT_EQ(Get("a", "b"), "");
    EXPECT_EQ(profile_.LastError(), 2);
    EXPECT_EQ(profile_.MessageText(2), "The system cannot find the file specified.");
    EXPECT_EQ(profile_.MessageText(4711), "");
    EXPECT_FALSE(profile_.WriteString("a", "b", "c", folder_.File("ingen/kv.ini")));
    EXPECT_EQ(profile_.LastError(), 3);
    EXPECT_FALSE(profile_.WriteString("a", "b", "c", folder_.Path().string()));
    EXPECT_EQ(profile_.LastError(), 5);
    EXPECT_TRUE(profile_.WriteString("a", "b", "c", file_));
    EXPECT_EQ(profile_.LastError(), 0);
}

TEST_F(ProfileFileTest, WhatIsNoFileIsAnErrorThatNamesIt) {
    for (const std::string& name : support::MakeNoFiles(folder_)) {
        const std::string path = folder_.File(name);
        if (std::filesystem::is_directory(path)) continue;  // of which the system has a code
        std::string buffer;
        for (const std::string& text :
             {ExpectError(75, [&] { profile_.GetString("a", "b", "", buffer, 255, path); }),
              ExpectError(75, [&] { profile_.WriteString("a", "b", "c", path); })}) {
            EXPECT_NE(text.find(path), std::string::npos) << text;
        }
    }
}

}  // namespace
}  // namespace platform
