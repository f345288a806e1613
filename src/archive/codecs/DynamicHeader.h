#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "archive/codecs/BitReader.h"
#include "archive/codecs/HuffmanTable.h"

namespace pellumar::archive {

// How a part of a DEFLATE decoder ended.
enum class InflateProgress : std::uint8_t {
    kDone,        // what it had to do
    kNeedsInput,  // all input is read; what is held begins something
    kNeedsRoom,   // the output is full
    kDamaged,
};

// The head of a block with Huffman codes of its own: the code lengths, themselves coded (RFC 1951,
// 3.2.7). Read in pieces.
class DynamicHeader {
  public:
    // DEFLATE has 30 distance codes, Deflate64 32.
    explicit DynamicHeader(std::size_t distanceCodes) : distanceCodes_(distanceCodes) {}

    // To the start of a header.
    void begin();

    // Reads on; kDone when the header is whole, kDamaged also where a code it needs is missing.
    [[nodiscard]] InflateProgress read(BitReader& bits);

    // The code lengths, once the header is whole and until begin().
    [[nodiscard]] std::span<const std::uint8_t> literalLengths() const {
        return std::span(lengths_).first(literals_);
    }
    [[nodiscard]] std::span<const std::uint8_t> distanceLengths() const {
        return std::span(lengths_).subspan(literals_, distances_);
    }

  private:
    enum class Stage : std::uint8_t { kCounts, kCodeLengthCode, kLengths };

    static constexpr std::size_t kCodeLengthCodes = 19;
    static constexpr std::size_t kMostLiterals = 286;
    static constexpr std::size_t kMostDistances = 32;

    [[nodiscard]] InflateProgress readCounts(BitReader& bits);
    [[nodiscard]] InflateProgress readCodeLengthCode(BitReader& bits);
    [[nodiscard]] InflateProgress readLengths(BitReader& bits);
    [[nodiscard]] bool repeat(std::size_t symbol, std::size_t extra);

    std::size_t distanceCodes_;
    Stage stage_ = Stage::kCounts;
    std::size_t literals_ = 0;
    std::size_t distances_ = 0;
    std::size_t codeLengthCodes_ = 0;
    std::size_t index_ = 0;  // of the next length of this stage
    HuffmanTable table_;
    std::array<std::uint8_t, kCodeLengthCodes> codeLengthLengths_{};
    std::array<std::uint8_t, kMostLiterals + kMostDistances> lengths_{};
};

}  // namespace pellumar::archive
