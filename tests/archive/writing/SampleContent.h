#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

namespace pellumar::test {

// Content of each kind that compresses in its own way; the same for the same seed.
enum class SampleKind : std::uint8_t { kText, kBinary, kNoise, kRuns, kMixed };

inline constexpr SampleKind kSampleKinds[] = {SampleKind::kText,
                                              SampleKind::kBinary,
                                              SampleKind::kNoise,
                                              SampleKind::kRuns,
                                              SampleKind::kMixed};

[[nodiscard]] inline std::vector<std::uint8_t> sampleContent(SampleKind kind,
                                                             std::size_t size,
                                                             std::uint32_t seed = 1) {
    constexpr std::string_view kWords[] = {"static ",
                                           "const ",
                                           "return ",
                                           "int ",
                                           "(void)",
                                           "{\n",
                                           "};\n",
                                           "    ",
                                           "value",
                                           "// why\n"};
    constexpr std::size_t kStretch = 50'000;  // of one kind in mixed content
    std::mt19937 random(seed);
    std::vector<std::uint8_t> bytes;
    bytes.reserve(size + kStretch);
    while (bytes.size() < size) {
        const auto number = static_cast<std::uint32_t>(random());
        switch (kind) {
            case SampleKind::kText: {
                const std::string_view word = kWords[number % std::size(kWords)];
                bytes.insert(bytes.end(), word.begin(), word.end());
                bytes.push_back(static_cast<std::uint8_t>('a' + (number >> 8U) % 26));
                break;
            }
            case SampleKind::kBinary:
                bytes.insert(bytes.end(),
                             {0x48, 0x8B, static_cast<std::uint8_t>(number % 64), 0, 0, 0});
                break;
            case SampleKind::kNoise:
                bytes.push_back(static_cast<std::uint8_t>(number >> 24U));
                break;
            case SampleKind::kRuns:
                bytes.insert(bytes.end(), number % 2000, static_cast<std::uint8_t>(number >> 24U));
                break;
            case SampleKind::kMixed: {
                const auto part =
                    sampleContent(kSampleKinds[number % 4], number / 4 % kStretch, number);
                bytes.insert(bytes.end(), part.begin(), part.end());
                break;
            }
        }
    }
    bytes.resize(size);
    return bytes;
}

}  // namespace pellumar::test
