#include "archive/reading/LinkSafety.h"

#include <gtest/gtest.h>

#include <map>

namespace pellumar::archive {
namespace {

bool allSafe(const std::map<std::string, std::string>& links) {
    LinkSafety safety;
    for (const auto& [path, target] : links) {
        EXPECT_TRUE(safety.add(path, target));
    }
    bool safe = true;
    for (const auto& [path, target] : links) {
        safe = safe && safety.isSafe(path);
    }
    return safe;
}

TEST(LinkSafety, TargetsInsideAreSafeWhetherTheyExistOrNot) {
    EXPECT_TRUE(allSafe({{"a", "b"}}));
    EXPECT_TRUE(allSafe({{"d/a", "../b/c"}}));
    EXPECT_TRUE(allSafe({{"d/e/a", "../.."}}));
    EXPECT_TRUE(allSafe({{"a", "d/./../b//c/"}}));
    EXPECT_TRUE(allSafe({{"a", "b"}, {"b", "c"}, {"c", "d"}}));
}

TEST(LinkSafety, TargetsOutsideAreNot) {
    EXPECT_FALSE(allSafe({{"a", ".."}}));
    EXPECT_FALSE(allSafe({{"a", "/etc"}}));
    EXPECT_FALSE(allSafe({{"a", ""}}));
    EXPECT_FALSE(allSafe({{"d/a", "../../b"}}));
    EXPECT_FALSE(allSafe({{"a", "d/../../b"}}));
}

TEST(LinkSafety, OtherLinksAreFollowedOnTheWay) {
    // By the letters alone g stays inside: d/e/x. But d/e/f is the top, and above it is outside.
    EXPECT_FALSE(allSafe({{"d/e/f", "../.."}, {"g", "d/e/f/../x"}}));
    EXPECT_TRUE(allSafe({{"d/e/f", "../.."}, {"g", "d/e/f/x"}}));
    // By the letters alone h leaves; in truth b lies two levels down.
    EXPECT_TRUE(allSafe({{"b", "d/e"}, {"h", "b/../../x"}}));
}

// Thousands of links into one chain of long targets took hours to walk.
TEST(LinkSafety, TargetsThatClimbAgainDoNotAddUpBeyondAPath) {
    std::string slow;
    for (int i = 0; i < 1300; ++i) {
        slow += "/..";
    }
    std::string deep;
    for (int i = 0; i < 1300; ++i) {
        deep += "/x";
    }
    EXPECT_FALSE(allSafe({{"a", "b/../b" + slow}, {"b", "c" + deep}}));
}

TEST(LinkSafety, CirclesAreSafeUnlessTheyHaveToBeWalked) {
    EXPECT_TRUE(allSafe({{"a", "a"}, {"b", "c/x"}, {"c", "b/y"}}));
    EXPECT_FALSE(allSafe({{"a", "a/../b"}}));
}

TEST(LinkSafety, TargetsTogetherAreBounded) {
    LinkSafety safety;
    const std::string half(LinkSafety::kMostTargetBytes / 2, 'x');
    EXPECT_TRUE(safety.add("a", half));
    EXPECT_TRUE(safety.add("b", half));
    EXPECT_FALSE(safety.add("c", "y"));
}

}  // namespace
}  // namespace pellumar::archive
