#include "archive/reading/DestinationTree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/TemporaryFolder.h"

namespace pellumar::archive {
namespace {

// The file behind a descriptor, or the error.
std::string identity(const Result<File>& folder) {
    if (!folder) {
        return std::string(describe(folder.error().code));
    }
    const auto status = folder->status();
    return std::to_string(status->st_dev) + ":" + std::to_string(status->st_ino);
}

TEST(DestinationTree, BothWaysOfEnteringAgreeAndFollowNoLink) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a/b/c");
    std::filesystem::create_directories(folder / "outside");
    std::filesystem::create_directory_symlink("b", folder / "a/link");
    std::filesystem::create_directory_symlink(folder / "outside", folder / "a/away");
    const auto tree = DestinationTree::open(folder / "a");
    ASSERT_TRUE(tree);

    for (const std::string path : {"", "b", "b/c"}) {
        const std::string entered = identity(tree->enter(tree->descriptor(), path));
        EXPECT_EQ(entered, identity(tree->enterStepByStep(tree->descriptor(), path))) << path;
        EXPECT_EQ(entered, identity(File::openForReading(folder / "a" / path))) << path;
    }
    for (const std::string path : {"link", "link/c", "away", "missing", "b/missing/c"}) {
        EXPECT_FALSE(tree->enter(tree->descriptor(), path)) << path;
        EXPECT_FALSE(tree->enterStepByStep(tree->descriptor(), path)) << path;
    }
}

TEST(DestinationTree, MakesTheFolderButNotItsParent) {
    const test::TemporaryFolder folder;
    EXPECT_TRUE(DestinationTree::open(folder / "new"));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "new"));
    const auto orphan = DestinationTree::open(folder / "missing/new");
    ASSERT_FALSE(orphan);
    EXPECT_EQ(orphan.error().code, ErrorCode::kOpenFailed);
    EXPECT_EQ(orphan.error().systemError, ENOENT);
}

}  // namespace
}  // namespace pellumar::archive
