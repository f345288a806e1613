#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pellumar::archive::test {

// Writes DEFLATE streams by hand, bit by bit (RFC 1951).
class BitWriter {
  public:
    // A number: the lowest bit first.
    BitWriter& bits(std::uint32_t value, unsigned count) {
        for (unsigned i = 0; i < count; ++i, ++used_) {
            if (used_ == 8) {
                bytes_.push_back(0);
                used_ = 0;
            }
            bytes_.back() |= static_cast<std::uint8_t>(((value >> i) & 1U) << used_);
        }
        return *this;
    }

    BitWriter& storedBlock(bool last, const std::vector<std::uint8_t>& bytes) {
        bits(last ? 1 : 0, 3);
        used_ = 8;
        const auto size = static_cast<std::uint32_t>(bytes.size());
        bits(size, 16).bits(size ^ 0xFFFFU, 16);
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return *this;
    }

    // A symbol of the canonical code with these lengths: as much of the code space as the symbols
    // before it take, the highest bit first.
    BitWriter& symbol(std::span<const std::uint8_t> lengths, std::size_t symbol) {
        const unsigned length = lengths[symbol];
        std::uint32_t before = 0;
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            const bool comesFirst = lengths[i] < length || (lengths[i] == length && i < symbol);
            before += lengths[i] != 0 && comesFirst ? 1U << (15U - lengths[i]) : 0;
        }
        for (unsigned bit = 0; bit < length; ++bit) {
            bits(before >> (14U - bit), 1);
        }
        return *this;
    }

    BitWriter& fixedLiteral(std::size_t value) {
        std::array<std::uint8_t, 288> lengths{};
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            lengths[i] = i < 144 || i >= 280 ? 8 : i < 256 ? 9 : 7;
        }
        return symbol(lengths, value);
    }
    BitWriter& fixedDistance(std::size_t value) {
        std::array<std::uint8_t, 32> lengths{};
        lengths.fill(5);
        return symbol(lengths, value);
    }

    // The head of a dynamic block. Its code lengths have sixteen codes of four bits.
    BitWriter& dynamicHeader(std::span<const std::uint8_t> literals,
                             std::span<const std::uint8_t> distances,
                             bool last = true) {
        bits(last ? 5 : 4, 3).bits(static_cast<std::uint32_t>(literals.size() - 257), 5);
        bits(static_cast<std::uint32_t>(distances.size() - 1), 5).bits(15, 4).bits(0, 9);
        for (int i = 0; i < 16; ++i) {
            bits(4, 3);
        }
        std::array<std::uint8_t, 16> code{};
        code.fill(4);
        for (const auto lengths : {literals, distances}) {
            for (const std::uint8_t length : lengths) {
                symbol(code, length);
            }
        }
        return *this;
    }

    [[nodiscard]] const std::vector<std::uint8_t>& bytes() const { return bytes_; }

  private:
    std::vector<std::uint8_t> bytes_;
    unsigned used_ = 8;  // bits of the last byte
};

}  // namespace pellumar::archive::test
