#include "archive/base/Crc32.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string_view>
#include <vector>

namespace pellumar::archive {
namespace {

std::vector<std::uint8_t> randomBytes(std::size_t size, std::mt19937& random) {
    std::vector<std::uint8_t> bytes(size);
    std::generate(
        bytes.begin(), bytes.end(), [&random] { return static_cast<std::uint8_t>(random()); });
    return bytes;
}

TEST(Crc32, GivesTheCheckValueOfTheAlgorithm) {
    constexpr std::string_view kCheck = "123456789";
    const ByteView bytes(reinterpret_cast<const std::uint8_t*>(kCheck.data()), kCheck.size());

    EXPECT_EQ(crc32(kCrc32OfNothing, bytes), 0xCBF43926U);
    EXPECT_EQ(crc32Plain(kCrc32OfNothing, bytes), 0xCBF43926U);
}

TEST(Crc32, CombinesPartsOfAnyLength) {
    std::mt19937 random(2);
    const std::vector<std::uint8_t> bytes = randomBytes(100'000, random);
    const std::uint32_t whole = crc32(kCrc32OfNothing, bytes);
    for (const std::size_t cut : {0U, 1U, 7U, 8U, 4095U, 65'536U, 99'999U, 100'000U}) {
        const ByteView view(bytes);
        const std::uint32_t first = crc32(kCrc32OfNothing, view.first(cut));
        const std::uint32_t second = crc32(kCrc32OfNothing, view.subspan(cut));
        EXPECT_EQ(crc32Combine(first, second, view.size() - cut), whole) << cut;
    }
}

}  // namespace
}  // namespace pellumar::archive
