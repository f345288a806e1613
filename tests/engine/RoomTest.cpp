#include <gtest/gtest.h>
#include <sys/mount.h>

#include <cerrno>
#include <cstring>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "engine/ZipManager.h"
#include "platform/FileUrl.h"
#include "platform/RecordingAnalytics.h"
#include "support/FileContents.h"
#include "support/ManualDispatchQueue.h"
#include "support/RecordingConsole.h"
#include "support/TemporaryFolder.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// A workspace on a disk of 4 MB, and a file beside it that fills 3 MB of one.
class RoomTest : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directory(disk_);
        if (::mount("tmpfs", disk_.c_str(), "tmpfs", 0, "size=4m") != 0) {
            GTEST_SKIP() << "no small disk: " << std::strerror(errno);
        }
        isMounted_ = true;
        std::string noise(3'000'000, '\0');
        std::uint32_t state = 1;
        for (char& each : noise) {
            state = state * 1664525U + 1013904223U;
            each = static_cast<char>(state >> 24U);
        }
        test::writeFile(folder_ / "large", noise);
        auto made = archive::Archive::open(folder_ / "large.zip", archive::AccessMode::kCreate);
        ASSERT_TRUE(made->addEntry("large", folder_.path(), archive::CompressionMethod::kDeflate));
        ASSERT_TRUE(made->close());
        fileSystem_.createFolders();
        fileSystem_.clearWorkspace();
        settle();
    }
    void TearDown() override {
        if (isMounted_) {
            EXPECT_EQ(::umount2(disk_.c_str(), MNT_DETACH), 0);
        }
    }

    void settle() {
        for (int round = 0; round < 2; ++round) {
            backgroundQueue_.runAll();
            mainQueue_.runAll();
        }
    }
    // What has been asked for last begins first, as it may on a queue with several threads.
    void settleTheLastFirst() {
        backgroundQueue_.runLast();
        settle();
    }
    void unzip() {
        manager_->unzip(fileUrl(folder_ / "large.zip"),
                        [this](const auto& files, const JobReport& report) {
                            succeeded_ = files.has_value();
                            report_ = report;
                        });
    }
    void zip() {
        manager_->zip({fileUrl(folder_ / "large")},
                      "T",
                      [this](const auto& archive, const JobReport& report) {
                          succeeded_ = archive.has_value();
                          report_ = report;
                      });
    }

    test::TemporaryFolder folder_;
    const fs::path disk_ = folder_ / "disk";
    bool isMounted_ = false;
    test::RecordingConsole console_;
    test::ManualDispatchQueue mainQueue_;
    test::ManualDispatchQueue backgroundQueue_;
    FileSystem fileSystem_{DocumentDirectory(disk_), console_, &backgroundQueue_};
    UserDefaults defaults_{QString::fromStdString((folder_ / "s.conf").native())};
    UserSettings settings_{defaults_};
    RecordingAnalytics engine_;
    PellumarAnalytics analytics_{settings_, engine_};
    std::shared_ptr<ZipManager> manager_ =
        ZipManager::create({.fileSystem = fileSystem_,
                            .analytics = analytics_,
                            .console = console_,
                            .mainQueue = mainQueue_,
                            .backgroundQueue = backgroundQueue_});
    bool succeeded_ = false;
    JobReport report_{OperationType::kUnzip, QUrl()};
};

// Emptied folders are moved out of sight at once and deleted in their time. An extraction right
// after that failed for want of the room that they still took.
TEST_F(RoomTest, AnExtractionTakesTheRoomOfWhatWaitsToBeDeleted) {
    unzip();
    settle();
    ASSERT_TRUE(succeeded_);
    fileSystem_.clearZipOutputs();
    unzip();
    settleTheLastFirst();
    EXPECT_TRUE(succeeded_);
    EXPECT_EQ(report_.failureCount(), 0U);
}

TEST_F(RoomTest, SoDoesACompression) {
    unzip();
    settle();
    ASSERT_TRUE(succeeded_);
    fileSystem_.clearZipOutputs();
    zip();
    settleTheLastFirst();
    EXPECT_TRUE(succeeded_);
    const auto made = archive::Reader::open(disk_ / "outputs/T.zip");
    ASSERT_TRUE(made) << made.error().describe();
    EXPECT_EQ(made->size(), 1U);
}

TEST_F(RoomTest, WithoutAnySuchTheNeedIsTold) {
    unzip();
    settle();
    ASSERT_TRUE(succeeded_);
    unzip();
    settle();
    EXPECT_FALSE(succeeded_);
    ASSERT_EQ(report_.failureCount(), 1U);
    const archive::Error& error = report_.failures().front();
    EXPECT_EQ(error.code, archive::ErrorCode::kTooLarge);
    EXPECT_GE(error.bytesNeeded, 3'000'000U);
    EXPECT_LT(error.bytesFree, error.bytesNeeded);
    EXPECT_GT(error.bytesFree, 0U);
    zip();
    settle();
    EXPECT_FALSE(succeeded_);
    EXPECT_EQ(report_.failures().front().code, archive::ErrorCode::kNoSpace);
}

}  // namespace
}  // namespace pellumar
