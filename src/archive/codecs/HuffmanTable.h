#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "archive/codecs/CanonicalCode.h"

namespace pellumar::archive {

// A canonical code with a table that finds all but the longest codes at once.
class HuffmanTable {
  public:
    // As CanonicalCode::build().
    [[nodiscard]] bool build(std::span<const std::uint8_t> lengths, CodeGaps gaps);

    // As CanonicalCode::find().
    [[nodiscard]] HuffmanSymbol find(std::uint64_t bits, unsigned available) const {
        const HuffmanSymbol& symbol = fast_[bits & (kFastSize - 1)];
        if (symbol.kind == HuffmanSymbol::Kind::kFound && symbol.length <= available) {
            return symbol;
        }
        return code_.find(bits, available);
    }

  private:
    // Codes up to this length are looked up; longer ones are rare and found bit by bit.
    static constexpr unsigned kFastBits = 10;
    static constexpr std::size_t kFastSize = std::size_t{1} << kFastBits;

    CanonicalCode code_;
    std::array<HuffmanSymbol, kFastSize> fast_{};
};

}  // namespace pellumar::archive
