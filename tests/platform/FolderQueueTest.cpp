#include "platform/FolderQueue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <vector>

#include "platform/GlobalDispatchQueue.h"

namespace pellumar::test {
namespace {

// Each opening of a picker looked at the same folders again, and soon all threads hung there.
TEST(FolderQueueTest, APlaceThatHangsTakesOneThreadHoweverOftenItIsAskedFor) {
    std::promise<void> answer;
    std::promise<void> elsewhere;
    std::promise<void> last;
    std::vector<int> order;
    {
        GlobalDispatchQueue threads(0, 2);
        FolderQueue folders(threads);
        folders.async("/net/hangs", [&answer] { answer.get_future().wait(); });
        for (int i = 0; i < 50; ++i) {
            folders.async("/net/hangs", [&order, i] { order.push_back(i); });
        }
        folders.async("/home", [&elsewhere] { elsewhere.set_value(); });
        EXPECT_EQ(elsewhere.get_future().wait_for(std::chrono::seconds(20)),
                  std::future_status::ready);
        answer.set_value();
        folders.async("/net/hangs", [&last] { last.set_value(); });
        last.get_future().wait();
    }
    ASSERT_EQ(order.size(), 50U);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

}  // namespace
}  // namespace pellumar::test
