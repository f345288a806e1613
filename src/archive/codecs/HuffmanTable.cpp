#include "archive/codecs/HuffmanTable.h"

namespace pellumar::archive {

bool HuffmanTable::build(std::span<const std::uint8_t> lengths, CodeGaps gaps) {
    if (!code_.build(lengths, gaps)) {
        return false;
    }
    fast_.fill({});
    code_.forEach(kFastBits, [this](std::uint16_t symbol, unsigned length, std::size_t code) {
        for (std::size_t at = code; at < kFastSize; at += std::size_t{1} << length) {
            fast_[at] = {.kind = HuffmanSymbol::Kind::kFound, .value = symbol, .length = length};
        }
    });
    return true;
}

}  // namespace pellumar::archive
