#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "archive/base/Bytes.h"
#include "archive/codecs/CanonicalCode.h"
#include "archive/codecs/DeflateFormat.h"
#include "archive/codecs/DynamicHeader.h"

namespace pellumar::archive {

// Walks over the blocks of a DEFLATE stream (RFC 1951) without decoding its content: finds where
// the last block begins and where the stream ends, which a compressor does not tell and which is
// needed to append to the stream. Keeps tables of about 20 KiB between calls; belongs to one
// thread.
class DeflateBlockWalker {
  public:
    // Where some bytes of the content end: in which block, where the symbols behind its header
    // begin, and the first symbol that says nothing of them.
    struct Front {
        std::size_t block = 0;
        std::size_t symbols = 0;
        std::size_t next = 0;
        std::size_t overhang = 0;  // the bytes behind them that are told by a match of theirs
    };

    // Positions in bits from the start of the stream, counted from the lowest bit of each byte.
    struct Layout {
        std::size_t lastBlock = 0;  // the BFINAL bit of the last block
        std::size_t end = 0;        // the first bit that is no longer the stream's
        Front front;
    };

    // The layout of the stream at the front of `stream`, its front that of the first `frontBytes`
    // of the content; nothing if it is damaged, has no end in it, or a stored block holds bytes of
    // the front. Distances are not verified.
    [[nodiscard]] std::optional<Layout> walk(ByteView stream, std::size_t frontBytes = 0);

  private:
    class WordReader;

    // A symbol of the literal and length code as found by the next bits: its codeword's length, 0
    // for one too long for the table, and its step.
    struct Single {
        std::uint8_t length = 0;
        std::uint8_t step = 0;
    };

    static constexpr unsigned kTableBits = 11;
    static constexpr std::size_t kTableSize = std::size_t{1} << kTableBits;

    [[nodiscard]] bool readDynamicCodes(ByteView stream, WordReader& reader);
    [[nodiscard]] bool setCodes(std::span<const std::uint8_t> literalLengths,
                                std::span<const std::uint8_t> distanceLengths);
    void fillLiteralTable();
    void fillDistanceTable();
    // The symbols of a block from `start` on whose header was read; what is left of the front is
    // counted down.
    [[nodiscard]] bool walkCoded(WordReader& reader,
                                 std::size_t start,
                                 std::size_t& left,
                                 Front& front) const;
    [[nodiscard]] bool walkSymbols(WordReader& stream) const;
    // Goes on to the end of the front or of the block, whichever comes first; counts `left` down.
    [[nodiscard]] bool walkFront(WordReader& reader, std::size_t& left, Front& front) const;
    // Of codewords that are not in the tables; 0 if there is no such codeword.
    [[nodiscard]] unsigned stepOfLong(std::uint64_t bits) const;
    [[nodiscard]] unsigned stepOfLongDistance(std::uint64_t bits) const;

    DynamicHeader header_{kDeflateDistances};
    // Fill the tables below, and find codewords that are too long for them.
    CanonicalCode literalCode_;
    CanonicalCode distanceCode_;
    std::array<Single, kTableSize> singles_{};
    // How far to go for the next bits. In the lower half over as many literals as lie whole within
    // them, and a length that follows; in the upper half over a distance.
    std::array<std::uint8_t, 2 * kTableSize> steps_{};
};

}  // namespace pellumar::archive
