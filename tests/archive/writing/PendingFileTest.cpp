#include "archive/writing/PendingFile.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <iterator>

#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;
using Existing = PendingFile::Existing;
using Road = PendingFile::Road;

// Both roads must do the same: what has no name, and what has another beside.
class PendingFileTest : public testing::TestWithParam<Road> {
  protected:
    [[nodiscard]] fs::path path() const { return folder_ / "made.zip"; }
    [[nodiscard]] Result<PendingFile> create(Existing existing) const {
        return PendingFile::create(path(), existing, GetParam());
    }
    [[nodiscard]] static Result<> put(PendingFile& file, std::string_view text) {
        return file.file().writeAt(
            0, ByteView(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
    }
    [[nodiscard]] auto filesInFolder() const {
        return std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator());
    }

    pellumar::test::TemporaryFolder folder_;
};

TEST_P(PendingFileTest, TheOldFileStandsUntilTheNewOneIsWhole) {
    pellumar::test::writeFile(path(), "old");
    {
        auto givenUp = create(Existing::kReplace);
        ASSERT_TRUE(givenUp);
        ASSERT_TRUE(put(*givenUp, "half"));
    }
    EXPECT_EQ(pellumar::test::readText(path()), "old");
    EXPECT_EQ(filesInFolder(), 1);

    auto file = create(Existing::kReplace);
    ASSERT_TRUE(file);
    ASSERT_TRUE(put(*file, "new"));
    EXPECT_EQ(pellumar::test::readText(path()), "old");
    ASSERT_TRUE(file->commit());
    EXPECT_EQ(pellumar::test::readText(path()), "new");
    EXPECT_EQ(filesInFolder(), 1);
    struct stat status {};
    ASSERT_EQ(::stat(path().c_str(), &status), 0);
    const mode_t umask = ::umask(0);
    ::umask(umask);
    EXPECT_EQ(status.st_mode & 07777U, 0666U & ~umask);
}

TEST_P(PendingFileTest, WhatCameMeanwhileIsNotReplacedUnlessAsked) {
    auto refusing = create(Existing::kRefuse);
    auto replacing = create(Existing::kReplace);
    ASSERT_TRUE(refusing && replacing);
    ASSERT_TRUE(put(*refusing, "refused"));
    ASSERT_TRUE(put(*replacing, "replaced"));
    pellumar::test::writeFile(path(), "came");
    EXPECT_EQ(refusing->commit().error().code, ErrorCode::kAlreadyExists);
    EXPECT_EQ(pellumar::test::readText(path()), "came");
    EXPECT_EQ(create(Existing::kRefuse).error().code, ErrorCode::kAlreadyExists);
    ASSERT_TRUE(replacing->commit());
    EXPECT_EQ(pellumar::test::readText(path()), "replaced");
    EXPECT_EQ(filesInFolder(), 1);

    // A link is replaced itself, wherever it leads; a folder never is.
    fs::remove(path());
    pellumar::test::writeFile(folder_ / "elsewhere", "untouched");
    fs::create_symlink("elsewhere", path());
    auto overLink = create(Existing::kReplace);
    ASSERT_TRUE(put(*overLink, "no link"));
    ASSERT_TRUE(overLink->commit());
    EXPECT_EQ(pellumar::test::readText(folder_ / "elsewhere"), "untouched");
    EXPECT_FALSE(fs::is_symlink(path()));
    fs::remove(path());
    fs::create_directory(path());
    EXPECT_EQ(create(Existing::kReplace).error().code, ErrorCode::kOpenFailed);
}

TEST_P(PendingFileTest, AFolderThatTakesNoSuchFileIsToldAtOnce) {
    for (const fs::path& bad :
         {folder_ / "missing/made.zip", folder_ / std::string(300, 'x'), folder_.path() / ""}) {
        EXPECT_FALSE(PendingFile::create(bad, Existing::kRefuse, GetParam())) << bad;
    }
    EXPECT_EQ(filesInFolder(), 0);
}

TEST_P(PendingFileTest, AKilledProcessLeavesNothingUnderTheName) {
    pellumar::test::writeFile(path(), "old");
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        auto file = create(Existing::kReplace);
        if (file && put(*file, "half")) {
            ::kill(::getpid(), SIGKILL);
        }
        ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(pellumar::test::readText(path()), "old");
    EXPECT_EQ(filesInFolder(), GetParam() == Road::kNameless ? 1 : 2);
    for (const fs::directory_entry& left : fs::directory_iterator(folder_.path())) {
        EXPECT_TRUE(left.path() == path() || left.path().extension() == ".part");
    }
}

INSTANTIATE_TEST_SUITE_P(BothRoads,
                         PendingFileTest,
                         testing::Values(Road::kNameless, Road::kNamed),
                         [](const auto& chosen) {
                             return chosen.param == Road::kNameless ? "Nameless" : "Named";
                         });

}  // namespace
}  // namespace pellumar::archive
