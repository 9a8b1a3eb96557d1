#include "platform/folder_lock.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "platform/process.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/temp_folder.h"

namespace platform {
namespace {

using support::ExpectError;
using support::TempFolder;

TEST(FolderLock, IsHeldByOneAtATimeWhateverThePathAndLeavesNoFile) {
    const TempFolder folder;
    const TempFolder other;
    std::filesystem::create_directory_symlink(folder.Path(), other.Path() / "link");
    std::optional<FolderLock> first(folder.Path().string());
    const FolderLock elsewhere(other.Path().string());
    const std::string text = ExpectError(70, [&] { FolderLock(other.File("LINK")); });
    EXPECT_NE(text.find(other.File("link")), std::string::npos) << text;
    first.reset();
    const FolderLock second(folder.Path().string());
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(FolderLock, IsNotHeldOnByAStartedCommand) {
    const TempFolder folder;
    {
        const FolderLock lock(folder.Path().string());
        SystemProcessStarter starter;
        ASSERT_TRUE(starter.Start("sleep 5"));
    }
    const FolderLock again(folder.Path().string());
}

TEST(FolderLock, NeedsAFolder) {
    const TempFolder folder;
    folder.Write("Data.mdb", "");
    ExpectError(76, [&] { FolderLock(folder.File("ingen")); });
    ExpectError(76, [&] { FolderLock(folder.File("Data.mdb")); });
}

}  // namespace
}  // namespace platform
