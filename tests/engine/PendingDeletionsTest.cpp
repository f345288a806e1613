#include "engine/PendingDeletions.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/GlobalDispatchQueue.h"
#include "support/FileContents.h"
#include "support/ManualDispatchQueue.h"
#include "support/TemporaryFolder.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

class PendingDeletionsTest : public testing::Test {
  protected:
    fs::path full(int number) {
        fs::path path = folder_ / std::to_string(number);
        fs::create_directories(path / "deep/deeper");
        for (int i = 0; i < 20; ++i) {
            test::writeFile(path / "deep" / std::to_string(i), "text");
        }
        return path;
    }

    test::TemporaryFolder folder_;
};

// Were it only to wait, jobs on all threads of the queue would wait for what is behind them in it.
TEST_F(PendingDeletionsTest, FinishesFromWithinAQueueThatIsBusy) {
    GlobalDispatchQueue queue;
    const auto deletions = PendingDeletions::on(&queue);
    for (int round = 0; round < 10; ++round) {
        for (int i = 0; i < 4; ++i) {
            deletions->add(full(round * 10 + i));
        }
        for (int job = 0; job < 8; ++job) {
            queue.async([this, deletions] {
                static_cast<void>(deletions->finish());
                EXPECT_TRUE(fs::is_empty(folder_.path()));
            });
        }
        EXPECT_TRUE(queue.waitForDone(std::chrono::minutes(1)));
    }
    EXPECT_FALSE(deletions->finish());
}

TEST_F(PendingDeletionsTest, DeletesInTimeOrAtOnceWhereThereIsNoQueue) {
    test::ManualDispatchQueue queue;
    const auto deletions = PendingDeletions::on(&queue);
    deletions->add(full(1));
    EXPECT_FALSE(fs::is_empty(folder_.path()));
    queue.runAll();
    EXPECT_TRUE(fs::is_empty(folder_.path()));
    deletions->add(full(2));
    EXPECT_TRUE(deletions->finish());
    EXPECT_TRUE(fs::is_empty(folder_.path()));
    queue.runAll();
    PendingDeletions::on(nullptr)->add(full(3));
    EXPECT_TRUE(fs::is_empty(folder_.path()));
}

}  // namespace
}  // namespace pellumar
