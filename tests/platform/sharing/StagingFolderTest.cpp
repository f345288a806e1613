#include "platform/sharing/StagingFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

class StagingFolderTest : public testing::Test {
  protected:
    StagingFolderTest() { fs::create_directory(folder / "target"); }
    // In a process that ends in the middle.
    void stageAndDie() const {
        const pid_t process = ::fork();
        if (process == 0) {
            const StagingFolder staging(folder / "target", folder / "notes");
            fs::create_directory(staging.path() / "tree");
            ::_exit(0);
        }
        ASSERT_EQ(::waitpid(process, nullptr, 0), process);
        ASSERT_FALSE(fs::is_empty(folder / "target"));
    }

    TemporaryFolder folder;
};

TEST_F(StagingFolderTest, WhatAKilledProcessLeftGoesWithTheNextLaunch) {
    stageAndDie();
    const StagingFolder inUse(folder / "target", folder / "notes");
    StagingFolder::removeLeft(folder / "notes");
    EXPECT_TRUE(fs::is_directory(inUse.path()));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "target"), {}), 1);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "notes"), {}), 1);
}

TEST_F(StagingFolderTest, OnAMediumThatIsAwayItIsRemovedLater) {
    stageAndDie();
    fs::rename(folder / "target", folder / "away");
    StagingFolder::removeLeft(folder / "notes");
    fs::rename(folder / "away", folder / "target");
    StagingFolder::removeLeft(folder / "notes");
    EXPECT_TRUE(fs::is_empty(folder / "target"));
    EXPECT_TRUE(fs::is_empty(folder / "notes"));
}

TEST_F(StagingFolderTest, NotedOrNotNothingOfOthersIsRemoved) {
    fs::create_directories(folder / "target" / "theirs");
    fs::create_directories(folder / "target" / ".pellumar-zip-not-noted");
    fs::create_directory(folder / "notes");
    writeFile(folder / "notes" / "odd", (folder / "target" / "theirs").string());
    writeFile(folder / "notes" / "empty", "");
    StagingFolder::removeLeft(folder / "notes");
    EXPECT_TRUE(fs::exists(folder / "target" / "theirs"));
    EXPECT_TRUE(fs::exists(folder / "target" / ".pellumar-zip-not-noted"));
}

}  // namespace
}  // namespace pellumar::test
