#include "platform/NaturalOrder.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <algorithm>
#include <chrono>
#include <random>

namespace pellumar::test {
namespace {

std::vector<std::string> sorted(const std::vector<std::string>& names) {
    std::vector<std::string> result;
    for (const std::size_t position : naturalOrder(names)) {
        result.push_back(names.at(position));
    }
    return result;
}

TEST(NaturalOrderTest, IsWhatPeopleExpect) {
    const std::vector<std::string> expected{"10 and more",
                                            "äpfel",
                                            "Birne",
                                            "caf\xe9",
                                            "file",
                                            "file 2",
                                            "File 2b",
                                            "FILE 10",
                                            "file 0011",
                                            "IMG_9.jpg",
                                            "img_10.jpg",
                                            "img_99999999999999999998",
                                            "zebra"};
    std::vector<std::string> names = expected;
    std::reverse(names.begin(), names.end());
    EXPECT_EQ(sorted(names), expected);
    EXPECT_TRUE(naturalOrder({}).empty());
    EXPECT_EQ(naturalOrder({"one"}), std::vector<std::size_t>{0});
}

TEST(NaturalOrderTest, FollowsTheUsersLanguage) {
    QLocale::setDefault(QLocale(QLocale::Swedish));
    const std::vector<std::string> swedish = sorted({"ö", "z", "o"});
    QLocale::setDefault(QLocale::system());
    EXPECT_EQ(swedish, (std::vector<std::string>{"o", "z", "ö"}));
}

// Names that are alike to people, and bytes that are no text, are still always in one order.
TEST(NaturalOrderTest, DoesNotDependOnTheOrderItStartsFrom) {
    std::vector<std::string> names{
        "a", "A", "a1", "a01", "a001", "A1", "\xff", "\xfe", "\xfe\xff", "", " ", "-a", "ａ"};
    const std::vector<std::string> once = sorted(names);
    std::mt19937 random(1);
    for (int i = 0; i < 50; ++i) {
        std::shuffle(names.begin(), names.end(), random);
        ASSERT_EQ(sorted(names), once);
    }
}

TEST(NaturalOrderTest, TakesAHundredThousandNames) {
    constexpr std::size_t kNames = 100'000;
    std::vector<std::string> names;
    for (std::size_t i = kNames; i > 0; --i) {
        names.push_back("IMG_" + std::to_string(i - 1) + ".jpg");
    }
    const auto start = std::chrono::steady_clock::now();
    const std::vector<std::size_t> order = naturalOrder(names);
    // A tenth of that on a machine that does nothing else.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_EQ(names[order.front()], "IMG_0.jpg");
    EXPECT_EQ(names[order.back()], "IMG_99999.jpg");
}

}  // namespace
}  // namespace pellumar::test
