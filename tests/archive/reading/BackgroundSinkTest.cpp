#include "archive/reading/BackgroundSink.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <string>

#include "support/ZipBuilder.h"

namespace pellumar::archive {
namespace {

class CollectingSink : public DataSink {
  public:
    Result<> write(ByteView bytes) override {
        if (text.size() > most) {
            throw std::bad_alloc();
        }
        text.append(bytes.begin(), bytes.end());
        return {};
    }

    std::string text;
    std::size_t most = std::string::npos;
};

ByteView bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// It once took all that it was given for what lay in its own room.
TEST(BackgroundSink, HandsOnWhatLiesAnywhere) {
    const std::string first = test::prose(100, 1);
    const std::string second = test::prose(3'000'000, 2);
    CollectingSink target;
    BackgroundSink sink(target);
    const MutableBytes room = sink.room();
    std::copy(first.begin(), first.end(), room.begin());
    EXPECT_TRUE(sink.write(room.first(first.size())));
    EXPECT_TRUE(sink.write(bytesOf(second)));
    EXPECT_TRUE(sink.finish());
    EXPECT_TRUE(target.text == first + second);
}

TEST(BackgroundSink, TellsOfMemoryThatItsThreadRanOutOf) {
    CollectingSink target;
    target.most = 1'000'000;
    BackgroundSink sink(target);
    static_cast<void>(sink.write(bytesOf(test::prose(3'000'000))));
    const auto finished = sink.finish();
    ASSERT_FALSE(finished);
    EXPECT_EQ(finished.error().code, ErrorCode::kOutOfMemory);
}

}  // namespace
}  // namespace pellumar::archive
