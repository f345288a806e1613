#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace pellumar::archive {

inline constexpr unsigned kLongestCode = 15;

// What may be missing of the codes.
enum class CodeGaps : std::uint8_t {
    kNone,
    // No code at all, or a single one of one bit: what an encoder writes that needs no distance, or
    // only one (RFC 1951, 3.2.7).
    kFewerThanTwoSymbols,
};

struct HuffmanSymbol {
    enum class Kind : std::uint8_t { kFound, kNeedsBits, kInvalid };

    Kind kind = Kind::kInvalid;
    std::uint16_t value = 0;
    unsigned length = 0;  // bits of its code
};

// A canonical Huffman code of DEFLATE (RFC 1951, 3.2.2): codes of one length are consecutive,
// shorter ones come first. Decodes bit by bit; whoever is in a hurry fills a table from forEach().
class CanonicalCode {
  public:
    static constexpr std::size_t kMostSymbols = 288;

    // From the code length of each symbol, 0 for one that does not occur; at most kMostSymbols of
    // at most kLongestCode. False if no such code exists: more codes than fit, or fewer than
    // `gaps` allows. It must not be used then.
    [[nodiscard]] bool build(std::span<const std::uint8_t> lengths, CodeGaps gaps);

    // The symbol at the lowest of `bits`, of which `available` are known; the others are 0.
    [[nodiscard]] HuffmanSymbol find(std::uint64_t bits, unsigned available) const;

    // Calls use(symbol, length, code) for every symbol whose code has at most `longest` bits, the
    // code as it stands in the stream, from the lowest bit on.
    template <typename Use>
    void forEach(unsigned longest, Use use) const {
        std::size_t code = 0;
        std::size_t index = 0;
        for (unsigned length = 1; length <= longest; ++length) {
            for (unsigned i = 0; i < counts_[length]; ++i, ++index, ++code) {
                use(symbols_[index], length, reversed(code, length));
            }
            code <<= 1U;
        }
    }

  private:
    // A code is packed from its highest bit on, all else from the lowest.
    static std::size_t reversed(std::size_t code, unsigned length) {
        std::size_t result = 0;
        for (unsigned bit = 0; bit < length; ++bit) {
            result = (result << 1U) | ((code >> bit) & 1U);
        }
        return result;
    }

    std::array<std::uint16_t, kLongestCode + 1> counts_{};  // codes of each length
    std::array<std::uint16_t, kMostSymbols> symbols_{};     // in the order of their codes
};

}  // namespace pellumar::archive
