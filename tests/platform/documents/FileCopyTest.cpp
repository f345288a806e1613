#include "platform/documents/FileCopy.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <string>

#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

bool goOn(std::uint64_t /*bytes*/) {
    return true;
}

class FileCopyTest : public testing::Test {
  protected:
    TemporaryFolder folder;
};

TEST_F(FileCopyTest, CopiesATreeWithAllThatCanBeCopied) {
    const fs::path from = folder / "from";
    fs::create_directories(from / "inner" / "caf\xe9");
    const std::string large((9 << 20) + 1, 'x');
    writeFile(from / "large", large);
    writeFile(from / "inner" / "caf\xe9" / "script", "run");
    writeFile(from / "empty", "");
    fs::permissions(from / "inner" / "caf\xe9" / "script", fs::perms(0555));
    fs::create_symlink("inner", from / "link");
    ASSERT_EQ(::mkfifo((from / "pipe").c_str(), 0600), 0);
    const auto then = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    fs::last_write_time(from / "large", then);
    fs::last_write_time(from / "inner", then);
    fs::permissions(from / "inner", fs::perms(0555));

    std::uint64_t told = 0;
    const auto copied = copyTree(from, folder / "to", [&told](std::uint64_t bytes) {
        told += bytes;
        return true;
    });
    ASSERT_TRUE(copied.has_value()) << copied.error().reason.message();
    const fs::path to = folder / "to";
    EXPECT_EQ(readText(to / "large"), large);
    EXPECT_EQ(readText(to / "inner" / "caf\xe9" / "script"), "run");
    EXPECT_EQ(fs::status(to / "inner" / "caf\xe9" / "script").permissions(), fs::perms(0755));
    EXPECT_EQ(fs::read_symlink(to / "link"), "inner");
    EXPECT_FALSE(fs::exists(fs::symlink_status(to / "pipe")));
    EXPECT_EQ(fs::last_write_time(to / "large"), then);
    EXPECT_EQ(fs::last_write_time(to / "inner"), then);
    EXPECT_EQ(fs::status(to / "inner").permissions(), fs::perms(0755));
    EXPECT_EQ(told, large.size() + 3);
    EXPECT_EQ(treeSize(from), told);
    fs::permissions(from / "inner", fs::perms(0755));
}

TEST_F(FileCopyTest, CopiesWhatTheSystemDoesNotCopyByItself) {
    // It says that it is empty, and cannot be copied from file to file.
    ASSERT_TRUE(copyTree("/proc/version", folder / "version", goOn).has_value());
    std::string line;
    std::getline(std::ifstream("/proc/version"), line);
    EXPECT_EQ(readText(folder / "version"), line + '\n');
}

TEST_F(FileCopyTest, StopsWhenToldAndLeavesNothing) {
    fs::create_directories(folder / "from");
    for (const char* name : {"a", "b", "c"}) {
        writeFile(folder / "from" / name, "text");
    }
    int steps = 0;
    const auto copied =
        copyTree(folder / "from", folder / "to", [&steps](std::uint64_t) { return ++steps < 2; });
    ASSERT_FALSE(copied.has_value());
    EXPECT_TRUE(copied.error().isCancelled());
    EXPECT_FALSE(fs::exists(folder / "to"));
}

TEST_F(FileCopyTest, RefusesWhatCannotBeAndTouchesNothing) {
    writeFile(folder / "a", "new");
    writeFile(folder / "b", "old");
    fs::create_symlink("nowhere", folder / "dangling");
    fs::create_directories(folder / "tree" / "inner");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(copyTree(folder / "a", folder / "b", goOn).has_value());
    EXPECT_EQ(readText(folder / "b"), "old");
    EXPECT_FALSE(copyTree(folder / "a", folder / "dangling", goOn).has_value());
    EXPECT_TRUE(fs::is_symlink(folder / "dangling"));
    EXPECT_FALSE(copyTree(folder / "missing", folder / "c", goOn).has_value());
    EXPECT_FALSE(copyTree(folder / "pipe", folder / "c", goOn).has_value());
    // It would never end.
    EXPECT_FALSE(copyTree(folder / "tree", folder / "tree" / "inner" / "copy", goOn).has_value());
    EXPECT_TRUE(fs::is_empty(folder / "tree" / "inner"));
    EXPECT_FALSE(fs::exists(folder / "c"));
}

TEST_F(FileCopyTest, FindsAFreeNameBesideTheOthers) {
    EXPECT_EQ(freePath(folder.path(), "a.zip"), folder / "a.zip");
    writeFile(folder / "a.zip", "");
    fs::create_symlink("nowhere", folder / "a (2).zip");
    fs::create_directory(folder / ".hidden");
    EXPECT_EQ(freePath(folder.path(), "a.zip"), folder / "a (3).zip");
    EXPECT_EQ(freePath(folder.path(), ".hidden"), folder / ".hidden (2)");
}

// Of such a name a file system cannot even tell whether anything stands there.
TEST_F(FileCopyTest, ATargetThatCannotBeLookedAtIsAFailure) {
    writeFile(folder / "from", "content");
    const fs::path to = freePath(folder.path(), std::string(300, 'x'));
    const auto copied = copyTree(folder / "from", to, goOn);
    ASSERT_FALSE(copied);
    EXPECT_EQ(copied.error().reason, std::errc::filename_too_long);
}

}  // namespace
}  // namespace pellumar::test
