#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <latch>
#include <memory>
#include <thread>
#include <vector>

#include "platform/GlobalDispatchQueue.h"
#include "platform/MainDispatchQueue.h"

namespace pellumar {
namespace {

TEST(MainDispatchQueue, RunsInOrderOnItsThreadWhateverThreadGives) {
    int count = 0;
    const QCoreApplication application(count, nullptr);
    MainDispatchQueue mainQueue;
    GlobalDispatchQueue globalQueue;
    QEventLoop loop;
    std::vector<int> order;
    globalQueue.async([&] {
        EXPECT_NE(QThread::currentThread(), application.thread());
        for (int i = 0; i < 100; ++i) {
            mainQueue.async([&, i] {
                EXPECT_EQ(QThread::currentThread(), application.thread());
                order.push_back(i);
            });
        }
        mainQueue.async([&loop] { loop.quit(); });
    });
    loop.exec();
    ASSERT_EQ(order.size(), 100U);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST(MainDispatchQueue, ReleasesWhatItDoesNotRun) {
    const auto held = std::make_shared<int>(0);
    int count = 0;
    const QCoreApplication application(count, nullptr);
    {
        MainDispatchQueue mainQueue;
        mainQueue.async([held] { FAIL(); });
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(GlobalDispatchQueue, RunsTwoJobsAtOnceAndWaitsForThem) {
    std::latch both(2);
    std::atomic<int> finished = 0;
    {
        GlobalDispatchQueue queue;
        for (int i = 0; i < 2; ++i) {
            queue.async([&] {
                both.arrive_and_wait();
                ++finished;
            });
        }
    }
    EXPECT_EQ(finished, 2);
}

TEST(GlobalDispatchQueue, TellsWhetherItsWorkIsDone) {
    std::latch mayEnd(1);
    GlobalDispatchQueue queue;
    EXPECT_TRUE(queue.waitForDone(std::chrono::milliseconds(0)));
    queue.async([&mayEnd] { mayEnd.wait(); });
    EXPECT_FALSE(queue.waitForDone(std::chrono::milliseconds(1)));
    mayEnd.count_down();
    EXPECT_TRUE(queue.waitForDone(std::chrono::minutes(1)));
}

TEST(GlobalDispatchQueue, StandsBackWithAllThatItsWorkStarts) {
    const auto niceness = [] { return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid())); };
    const int ours = niceness();
    int first = 0;
    int started = 0;
    {
        GlobalDispatchQueue queue(1);
        queue.async([&] {
            first = niceness();
            std::thread([&] { started = niceness(); }).join();
        });
    }
    EXPECT_EQ(first, std::min(ours + 1, 19));
    EXPECT_EQ(started, first);
    EXPECT_EQ(niceness(), ours);
}

}  // namespace
}  // namespace pellumar
