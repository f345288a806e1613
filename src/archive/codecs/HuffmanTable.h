#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace pellumar::archive {

// Decodes one canonical Huffman code of DEFLATE (RFC 1951, 3.2.2): codes of one length are
// consecutive, shorter ones come first.
class HuffmanTable {
  public:
    static constexpr unsigned kLongestCode = 15;
    static constexpr std::size_t kMostSymbols = 288;

    // What may be missing of the codes.
    enum class Gaps : std::uint8_t {
        kNone,
        // No code at all, or a single one of one bit: what an encoder writes that needs no
        // distance, or only one (RFC 1951, 3.2.7).
        kFewerThanTwoSymbols,
    };

    struct Symbol {
        enum class Kind : std::uint8_t { kFound, kNeedsBits, kInvalid };

        Kind kind = Kind::kInvalid;
        std::uint16_t value = 0;
        unsigned length = 0;  // bits of its code
    };

    // From the code length of each symbol, 0 for one that does not occur; at most kMostSymbols of
    // at most kLongestCode. False if no such code exists: more codes than fit, or fewer than
    // `gaps` allows. The table must not be used then.
    [[nodiscard]] bool build(std::span<const std::uint8_t> lengths, Gaps gaps);

    // The symbol at the lowest of `bits`, of which `available` are known; the others are 0.
    [[nodiscard]] Symbol find(std::uint64_t bits, unsigned available) const {
        const Symbol& symbol = fast_[bits & (kFastSize - 1)];
        if (symbol.kind == Symbol::Kind::kFound && symbol.length <= available) {
            return symbol;
        }
        return findSlowly(bits, available);
    }

  private:
    // Codes up to this length are looked up; longer ones are rare and found bit by bit.
    static constexpr unsigned kFastBits = 10;
    static constexpr std::size_t kFastSize = std::size_t{1} << kFastBits;

    [[nodiscard]] Symbol findSlowly(std::uint64_t bits, unsigned available) const;
    void fillFast();

    std::array<std::uint16_t, kLongestCode + 1> counts_{};  // codes of each length
    std::array<std::uint16_t, kMostSymbols> symbols_{};     // in the order of their codes
    std::array<Symbol, kFastSize> fast_{};
};

}  // namespace pellumar::archive
