#include "BitWriter.h"

#include <array>

namespace pellumar::archive::test {

BitWriter& BitWriter::bits(std::uint32_t value, unsigned count) {
    for (unsigned i = 0; i < count; ++i, ++used_) {
        if (used_ == 8) {
            bytes_.push_back(0);
            used_ = 0;
        }
        bytes_.back() |= static_cast<std::uint8_t>(((value >> i) & 1U) << used_);
    }
    return *this;
}

BitWriter& BitWriter::align() {
    used_ = 8;
    return *this;
}

BitWriter& BitWriter::code(std::size_t code, unsigned length) {
    for (unsigned i = length; i-- > 0;) {
        bits(static_cast<std::uint32_t>(code >> i) & 1U, 1);
    }
    return *this;
}

BitWriter& BitWriter::symbol(std::span<const std::uint8_t> lengths, std::size_t symbol) {
    // The code is how much of the code space the symbols before it take.
    const unsigned length = lengths[symbol];
    std::size_t before = 0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const bool comesFirst = lengths[i] < length || (lengths[i] == length && i < symbol);
        if (lengths[i] != 0 && comesFirst) {
            before += std::size_t{1} << (15U - lengths[i]);
        }
    }
    return code(before >> (15U - length), length);
}

BitWriter& BitWriter::fixedLiteral(std::size_t symbol) {
    if (symbol < 144) {
        return code(0x30 + symbol, 8);
    }
    if (symbol < 256) {
        return code(0x190 + symbol - 144, 9);
    }
    return symbol < 280 ? code(symbol - 256, 7) : code(0xC0 + symbol - 280, 8);
}

BitWriter& BitWriter::dynamicCounts(
    bool last,
    std::size_t literals,
    std::size_t distances,
    const std::vector<std::pair<std::size_t, std::uint8_t>>& codeLengths) {
    constexpr std::array<std::size_t, 19> kOrder{
        16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    std::array<std::uint8_t, 19> lengths{};
    for (const auto& [symbol, length] : codeLengths) {
        lengths[symbol] = length;
    }
    bits(last ? 1 : 0, 1).bits(2, 2);
    bits(static_cast<std::uint32_t>(literals - 257), 5);
    bits(static_cast<std::uint32_t>(distances - 1), 5).bits(15, 4);
    for (const std::size_t symbol : kOrder) {
        bits(lengths[symbol], 3);
    }
    return *this;
}

BitWriter& BitWriter::dynamicHeader(bool last,
                                    std::span<const std::uint8_t> literals,
                                    std::span<const std::uint8_t> distances) {
    // Sixteen codes of four bits: the length itself.
    std::vector<std::pair<std::size_t, std::uint8_t>> codeLengths;
    for (std::size_t length = 0; length < 16; ++length) {
        codeLengths.emplace_back(length, 4);
    }
    dynamicCounts(last, literals.size(), distances.size(), codeLengths);
    for (const auto lengths : {literals, distances}) {
        for (const std::uint8_t length : lengths) {
            code(length, 4);
        }
    }
    return *this;
}

}  // namespace pellumar::archive::test
