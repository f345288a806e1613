#include "archive/format/Utf8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace pellumar::archive::format {

namespace {

// A lead byte's sequence: how many bytes follow, and the range of the first of them (RFC 3629,
// section 4); the others are 80 to BF.
struct Sequence {
    std::size_t following = 0;
    std::uint8_t lowest = 0x80;
    std::uint8_t highest = 0xBF;
    bool valid = true;
};

Sequence sequenceOf(std::uint8_t lead) {
    if (lead < 0x80) {
        return {};
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return {.following = 1};
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return {.following = 2,
                .lowest = static_cast<std::uint8_t>(lead == 0xE0 ? 0xA0 : 0x80),
                .highest = static_cast<std::uint8_t>(lead == 0xED ? 0x9F : 0xBF)};
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        return {.following = 3,
                .lowest = static_cast<std::uint8_t>(lead == 0xF0 ? 0x90 : 0x80),
                .highest = static_cast<std::uint8_t>(lead == 0xF4 ? 0x8F : 0xBF)};
    }
    return {.valid = false};
}

}  // namespace

bool isAscii(std::string_view text) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::uint64_t bits = 0;
    std::size_t i = 0;
    // In words: a list of a million names is told so for each.
    for (; i + sizeof bits <= text.size(); i += sizeof bits) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + i, sizeof word);
        bits |= word;
    }
    for (; i < text.size(); ++i) {
        bits |= static_cast<std::uint8_t>(text[i]);
    }
    return (bits & kHighBits) == 0;
}

bool isUtf8(std::string_view text) {
    if (isAscii(text)) {
        return true;
    }
    std::size_t i = 0;
    while (i < text.size()) {
        const Sequence sequence = sequenceOf(static_cast<std::uint8_t>(text[i]));
        if (!sequence.valid || text.size() - i <= sequence.following) {
            return false;
        }
        for (std::size_t k = 1; k <= sequence.following; ++k) {
            const auto byte = static_cast<std::uint8_t>(text[i + k]);
            const std::uint8_t lowest = k == 1 ? sequence.lowest : 0x80;
            const std::uint8_t highest = k == 1 ? sequence.highest : 0xBF;
            if (byte < lowest || byte > highest) {
                return false;
            }
        }
        i += sequence.following + 1;
    }
    return true;
}

}  // namespace pellumar::archive::format
