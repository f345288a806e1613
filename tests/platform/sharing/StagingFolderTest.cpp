#include "platform/sharing/StagingFolder.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace {

// What was flushed, in order.
std::vector<std::filesystem::path>& flushed() {
    static std::vector<std::filesystem::path> paths;
    return paths;
}

}  // namespace

// Takes the place of the C library's.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int fsync(int number) {
    flushed().push_back(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(number)));
    return static_cast<int>(::syscall(SYS_fsync, number));
}

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

// The folder of the notes was flushed by nobody, so a cut of power took the note that was flushed
// in it, and what was staged stayed for ever.
TEST_F(StagingFolderTest, TheNoteIsOnTheDiskWithAllThatLeadsToIt) {
    const fs::path notes = folder / "new" / "deep" / "notes";
    flushed().clear();
    const StagingFolder staging(folder / "target", notes);
    const fs::path note = fs::directory_iterator(notes)->path();
    const std::vector<fs::path> all{
        note, notes, folder / "new" / "deep", folder / "new", folder.path()};
    EXPECT_EQ(flushed(), all);
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
