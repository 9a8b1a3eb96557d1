#include "platform/text_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/no_files.h"
#include "tests/support/platform/temp_folder.h"

namespace platform {
namespace {

using support::ExpectError;
using support::TempFolder;

// Files may not grow further for as long as it lives.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t size) {
        handlerBefore_ = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit lower{size, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &lower);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handlerBefore_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit before_{};
    void (*handlerBefore_)(int) = nullptr;
};

TEST(TextFile, WritesCodePageLinesInOrder) {
    const TempFolder folder;
    TextFiles files;
    const std::string block = EncodeLine(std::string(300'000, 'x'));  // larger than any buffer
    std::string expected = "7;6;\r\n";
    {
        const auto file = files.OpenForOutput(folder.File("a.txt"));
        file->WriteLine("7;6;");
        file->WriteEncoded(block);
        for (int i = 0; i < 100'000; ++i) {
            file->WriteLine("Sjø");
        }
    }  // without Close
    expected += block;
    for (int i = 0; i < 100'000; ++i) {
        expected += "Sj\xF8\r\n";
    }
    EXPECT_TRUE(folder.Read("a.txt") == expected);

    const auto more = files.OpenForAppend(folder.File("A.TXT"));
    more->WriteLine("slutt");
    more->Close();
    more->Close();
    EXPECT_TRUE(folder.Read("a.txt") == expected + "slutt\r\n");
    ExpectError(52, [&] { more->WriteLine("for sent"); });
    files.OpenForOutput(folder.File("a.txt"))->Close();
    EXPECT_EQ(folder.Read("a.txt"), "");
}

TEST(TextFiles, AnOpenFileIsRefusedInEverySpelling) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "Ordre");
    std::filesystem::create_directory_symlink("Ordre", folder.Path() / "lenke");
    folder.Write("annen.txt", "x");
    TextFiles files;
    const auto file = files.OpenForOutput(folder.File("Ordre/ut.tmp"));
    file->WriteLine("1");
    const std::string root = folder.Path().string();
    for (const std::string name :
         {"/Ordre/ut.tmp", R"(\ORDRE\UT.TMP)", "/lenke/ut.tmp", "/Ordre/../lenke/./Ut.tmp"}) {
        ExpectError(55, [&] { return files.OpenForOutput(root + name); });
        ExpectError(55, [&] { return files.OpenForAppend(root + name); });
        ExpectError(55, [&] { files.Copy(folder.File("annen.txt"), root + name); });
        ExpectError(55, [&] { files.Copy(root + name, folder.File("annen.txt")); });
    }
    file->Close();
    files.OpenForAppend(folder.File("lenke/ut.tmp"))->WriteLine("2");
    EXPECT_EQ(folder.Read("Ordre/ut.tmp"), "1\r\n2\r\n");
}

TEST(TextFiles, OpeningTellsWhatIsInTheWay) {
    const TempFolder folder;
    TextFiles files;
    ExpectError(75, [&] { return files.OpenForOutput(folder.Path().string()); });
    const std::string text =
        ExpectError(76, [&] { return files.OpenForAppend(folder.File("ingen/ut.txt")); });
    EXPECT_NE(text.find(folder.File("ingen")), std::string::npos) << text;
}

TEST(TextFile, AFullDiskIsError61AndTheFileCanBeOpenedAgain) {
    const TempFolder folder;
    const std::string block(400'000, 'x');
    const FileSizeLimit limit(100'000);
    TextFiles files;
    const auto atClose = files.OpenForAppend(folder.File("ut.txt"));
    atClose->WriteLine(block.substr(0, 150'000));
    ExpectError(61, [&] { atClose->Close(); });
    EXPECT_FALSE(atClose->IsOpen());

    const auto whileWriting = files.OpenForAppend(folder.File("ut.txt"));
    ExpectError(61, [&] { whileWriting->WriteEncoded(block); });
    ExpectError(61, [&] { whileWriting->WriteLine(block); });
}  // what is left can not be written either, and is nobody's error any more

TEST(TextFiles, CopyReplacesTheFile) {
    const TempFolder folder;
    const std::string content(500'000, 'y');
    folder.Write("fra.tmp", content);
    folder.Write("Til.txt", std::string(600'000, 'z'));
    TextFiles files;
    files.Copy(folder.File("FRA.TMP"), folder.File("TIL.TXT"));
    EXPECT_TRUE(folder.Read("Til.txt") == content);
    std::filesystem::create_hard_link(folder.File("Til.txt"), folder.File("samme.txt"));
    ExpectError(70, [&] { files.Copy(folder.File("samme.txt"), folder.File("Til.txt")); });
    EXPECT_TRUE(folder.Read("Til.txt") == content);
    ExpectError(53, [&] { files.Copy(folder.File("ingen.txt"), folder.File("Til.txt")); });
    ExpectError(76, [&] { files.Copy(folder.File("Til.txt"), folder.File("ingen/Til.txt")); });
    const FileSizeLimit limit(100'000);
    ExpectError(61, [&] { files.Copy(folder.File("Til.txt"), folder.File("ny.txt")); });
}

// A working copy's name lies beside files that others may write: whoever plants a link or a pipe
// there must neither have another file overwritten nor hold the server.
TEST(TextFiles, WhatIsNoFileOfItsOwnIsRefusedAndLeftAlone) {
    const TempFolder folder;
    std::vector<std::string> names = support::MakeNoFiles(folder);
    folder.Write("fra.txt", "ny");
    folder.Write("annen.txt", "annen");
    std::filesystem::create_symlink("annen.txt", folder.File("plantet.tmp"));
    std::filesystem::create_symlink("ingen.txt", folder.File("ingensteds.tmp"));
    names.insert(names.end(), {"plantet.tmp", "ingensteds.tmp"});
    TextFiles files;
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        const std::string path = folder.File(name);
        const auto before = std::filesystem::symlink_status(path);
        for (const std::string& text :
             {ExpectError(75, [&] { return files.OpenForOutput(path); }),
              ExpectError(75, [&] { return files.OpenForAppend(path); }),
              ExpectError(75, [&] { files.Copy(folder.File("fra.txt"), path); })}) {
            EXPECT_NE(text.find(path), std::string::npos) << text;
        }
        EXPECT_EQ(std::filesystem::symlink_status(path).type(), before.type());
    }
    EXPECT_EQ(folder.Read("annen.txt"), "annen");
    EXPECT_FALSE(folder.Has("ingen.txt"));
}

TEST(TextFiles, WhatABrokenOffRunLeftIsReplacedNotWrittenTo) {
    const TempFolder folder;
    folder.Write("bilag.tmp", "gammel");
    std::filesystem::create_hard_link(folder.File("bilag.tmp"), folder.File("navn to"));
    folder.Write("fra.txt", "ny");
    TextFiles files;
    files.OpenForOutput(folder.File("bilag.tmp"))->Close();
    EXPECT_EQ(folder.Read("navn to"), "gammel");
    std::filesystem::create_hard_link(folder.File("bilag.tmp"), folder.File("navn tre"));
    files.Copy(folder.File("fra.txt"), folder.File("bilag.tmp"));
    EXPECT_EQ(folder.Read("navn tre"), "");
    EXPECT_EQ(folder.Read("bilag.tmp"), "ny");
}

}  // namespace
}  // namespace platform
