#include "archive/base/LinkSafety.h"

#include <gtest/gtest.h>

#include <map>

namespace pellumar::archive {
namespace {

using Links = std::map<std::string, std::string>;

bool isAFolder(std::string_view path) {
    return path == "d" || path == "d/e";
}

bool allSafe(const Links& links, bool (*isFolder)(std::string_view) = isAFolder) {
    LinkSafety safety(isFolder);
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
    const auto anyFolder = [](std::string_view path) { return path != "a" && path != "b"; };
    EXPECT_FALSE(allSafe({{"a", "b/../b" + slow}, {"b", "c" + deep}}, anyFolder));

    Links many{{"b", "c" + deep.substr(0, 2000)}};
    for (int i = 0; i < 3; ++i) {
        many["d" + std::to_string(i)] = "b/..";
    }
    EXPECT_TRUE(allSafe(many, anyFolder));
    for (int i = 0; i < 3000; ++i) {
        many["d" + std::to_string(i)] = "b/..";
    }
    EXPECT_FALSE(allSafe(many, anyFolder));
}

// To a file system without regard to case "D/E/..." may go through the link "d/e/f", and so may any
// name that is neither a folder's nor a link's.
TEST(LinkSafety, NothingClimbsFromWhereNobodyKnows) {
    EXPECT_FALSE(allSafe({{"d/e/f", "../.."}, {"g", "d/e/F/../x"}}));
    EXPECT_FALSE(allSafe({{"g", "nowhere/../x"}}));
    EXPECT_FALSE(allSafe({{"g", "d/../nowhere/x/../y"}}));
    EXPECT_TRUE(allSafe({{"g", "d/../nowhere/x"}}));
}

TEST(LinkSafety, CirclesAreSafeUnlessTheyHaveToBeWalked) {
    EXPECT_TRUE(allSafe({{"a", "a"}, {"b", "c/x"}, {"c", "b/y"}}));
    EXPECT_FALSE(allSafe({{"a", "a/../b"}}));
}

TEST(LinkSafety, TargetsTogetherAreBounded) {
    LinkSafety safety(isAFolder);
    const std::string half(LinkSafety::kMostTargetBytes / 2, 'x');
    EXPECT_TRUE(safety.add("a", half));
    EXPECT_TRUE(safety.add("b", half));
    EXPECT_FALSE(safety.add("c", "y"));
}

}  // namespace
}  // namespace pellumar::archive
