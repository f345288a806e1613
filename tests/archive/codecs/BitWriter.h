#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace pellumar::archive::test {

// Writes DEFLATE streams by hand, bit by bit (RFC 1951).
class BitWriter {
  public:
    // Numbers: the lowest bit first.
    BitWriter& bits(std::uint32_t value, unsigned count);

    // Fills the last byte with zeros.
    BitWriter& align();

    // A symbol of the canonical code with these lengths.
    BitWriter& symbol(std::span<const std::uint8_t> lengths, std::size_t symbol);
    // A symbol of the fixed code of literals and lengths, or of distances.
    BitWriter& fixedLiteral(std::size_t symbol);
    BitWriter& fixedDistance(std::size_t symbol) { return code(symbol, 5); }

    // The head of a dynamic block: its code lengths, four bits each.
    BitWriter& dynamicHeader(bool last,
                             std::span<const std::uint8_t> literals,
                             std::span<const std::uint8_t> distances);

    // Its beginning: the counts, and the lengths of the code length code as pairs of symbol and
    // length.
    BitWriter& dynamicCounts(bool last,
                             std::size_t literals,
                             std::size_t distances,
                             const std::vector<std::pair<std::size_t, std::uint8_t>>& codeLengths);

    [[nodiscard]] const std::vector<std::uint8_t>& bytes() const { return bytes_; }

  private:
    // Huffman codes: the highest bit first.
    BitWriter& code(std::size_t code, unsigned length);

    std::vector<std::uint8_t> bytes_;
    unsigned used_ = 8;  // bits of the last byte
};

}  // namespace pellumar::archive::test
