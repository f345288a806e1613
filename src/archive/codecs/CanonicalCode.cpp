#include "archive/codecs/CanonicalCode.h"

namespace pellumar::archive {

bool CanonicalCode::build(std::span<const std::uint8_t> lengths, CodeGaps gaps) {
    counts_.fill(0);
    for (const std::uint8_t length : lengths) {
        ++counts_[length];
    }
    counts_[0] = 0;

    // The codes that are still free at each length double from one to the next.
    int left = 1;
    std::size_t total = 0;
    std::array<std::size_t, kLongestCode + 1> offsets{};
    for (unsigned length = 1; length <= kLongestCode; ++length) {
        left = 2 * left - counts_[length];
        if (left < 0) {
            return false;
        }
        offsets[length] = total;
        total += counts_[length];
    }
    const bool few = total == 0 || (total == 1 && counts_[1] == 1);
    if (left > 0 && !(few && gaps == CodeGaps::kFewerThanTwoSymbols)) {
        return false;
    }

    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        if (lengths[symbol] != 0) {
            symbols_[offsets[lengths[symbol]]++] = static_cast<std::uint16_t>(symbol);
        }
    }
    return true;
}

HuffmanSymbol CanonicalCode::find(std::uint64_t bits, unsigned available) const {
    std::size_t code = 0;
    std::size_t first = 0;  // the first code of this length
    std::size_t index = 0;  // and its place in symbols_
    for (unsigned length = 1; length <= kLongestCode; ++length) {
        if (length > available) {
            return {.kind = HuffmanSymbol::Kind::kNeedsBits};
        }
        code |= (bits >> (length - 1)) & 1U;
        const std::size_t count = counts_[length];
        if (code - first < count) {
            return {.kind = HuffmanSymbol::Kind::kFound,
                    .value = symbols_[index + (code - first)],
                    .length = length};
        }
        index += count;
        first = (first + count) << 1U;
        code <<= 1U;
    }
    return {.kind = HuffmanSymbol::Kind::kInvalid};
}

}  // namespace pellumar::archive
