#include "platform/file_lock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <optional>

#include "platform/process.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/temp_folder.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using support::ExpectError;
using support::TempFolder;

class FileLockTest : public testing::Test {
  protected:
    [[nodiscard]] FileLock Lock(std::string_view name) const {
        return FileLock(FileToLock(folder.File(name)));
    }

    TempFolder folder;
};

TEST_F(FileLockTest, IsHeldByOneAtATimeWhateverTheNameAndLeavesNoFile) {
    folder.Write("ordre.edi", "7;6;");
    const TempFolder other;
    fs::create_symlink(folder.File("ordre.edi"), other.Path() / "link.edi");
    fs::create_directory_symlink(folder.Path(), other.Path() / "shop");
    {
        const FileLock first = Lock("ordre.edi");
        ASSERT_TRUE(first.IsHeld());
        for (const std::string& name :
             {folder.File("ORDRE.EDI"), other.File("link.edi"), other.File("shop\\ordre.edi")}) {
            const std::string text = ExpectError(70, [&] { FileLock(FileToLock(name)); });
            EXPECT_NE(text.find(folder.File("ordre.edi") + " is used by KVDayEndServer, process " +
                                std::to_string(::getpid()) + " on "),
                      std::string::npos)
                << text;
            EXPECT_NE(text.find(fs::current_path().string()), std::string::npos) << text;
        }
        EXPECT_TRUE(Lock("bilag.txt").IsHeld()) << "a file that is not there yet";
    }
    EXPECT_TRUE(Lock("ordre.edi").IsHeld());
    EXPECT_FALSE(folder.Has("ordre.edi.lock"));
    EXPECT_FALSE(folder.Has("bilag.txt.lock"));
}

TEST_F(FileLockTest, WhatAKilledServerLeftIsTaken) {
    folder.Write("ordre.edi.lock", "KVDayEndServer, process 1 on nowhere, in the folder /gone\n");
    {
        const FileLock lock = Lock("ordre.edi");
        const std::string text = ExpectError(70, [&] { (void)Lock("ordre.edi"); });
        EXPECT_EQ(text.find("nowhere"), std::string::npos) << text;
    }
    EXPECT_FALSE(folder.Has("ordre.edi.lock"));
}

TEST_F(FileLockTest, ALockFileThatWasReplacedIsLeftToItsHolder) {
    std::optional<FileLock> first(Lock("ordre.edi"));
    fs::remove(folder.File("ordre.edi.lock"));
    const FileLock second = Lock("ordre.edi");
    ASSERT_TRUE(second.IsHeld());
    first.reset();
    ExpectError(70, [&] { (void)Lock("ordre.edi"); });
}

// Whoever opens the file next learns what is wrong, and nothing of others is touched.
TEST_F(FileLockTest, WhereNoLockCanBeMadeNothingIsHeldAndNothingChanges) {
    fs::create_directory(folder.File("mappe"));
    ASSERT_EQ(::mkfifo(folder.File("rør").c_str(), 0600), 0);
    ASSERT_EQ(::mkfifo(folder.File("a.lock").c_str(), 0600), 0);
    fs::create_symlink(folder.File("mål"), folder.File("b.lock"));
    for (const char* name : {"ingen/ordre.edi", "mappe", "rør", "a", "b"}) {
        EXPECT_FALSE(Lock(name).IsHeld()) << name;
        EXPECT_FALSE(Lock(name).IsHeld()) << name;
    }
    EXPECT_FALSE(FileLock(FileToLock("")).IsHeld());
    EXPECT_FALSE(folder.Has("mål"));
    EXPECT_FALSE(folder.Has("mappe.lock"));
    EXPECT_FALSE(folder.Has("rør.lock"));

    // An empty one, too, may be what others tell each other by.
    for (const char* content : {"\nmin egen", ""}) {
        folder.Write("notat.lock", content);
        {
            const FileLock lock = Lock("notat");
            const std::string text = ExpectError(70, [&] { (void)Lock("notat"); });
            EXPECT_NE(text.find("another server"), std::string::npos) << text;
        }
        ASSERT_TRUE(folder.Has("notat.lock"));
        EXPECT_EQ(folder.Read("notat.lock"), content);
    }
}

TEST_F(FileLockTest, IsNotHeldOnByAStartedCommand) {
    {
        const FileLock lock = Lock("ordre.edi");
        fs::create_hard_link(folder.File("ordre.edi.lock"), folder.File("bilag.txt.lock"));
        SystemProcessStarter starter;
        ASSERT_TRUE(starter.Start("sleep 5"));
    }
    // The same lock file under a name that was not taken away.
    EXPECT_TRUE(Lock("bilag.txt").IsHeld());
}

}  // namespace
}  // namespace platform
