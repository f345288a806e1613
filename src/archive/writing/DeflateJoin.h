#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "archive/base/Bytes.h"
#include "archive/writing/DeflateBlockWalker.h"

// DEFLATE streams as parts of a longer one, each ending on a byte boundary (RFC 1951, 3.2.3 and
// 3.2.4).
namespace pellumar::archive {

// What an empty file is compressed to: a block of fixed codes with nothing but its end.
inline constexpr std::array<std::uint8_t, 2> kEmptyDeflateStream = {0x03, 0x00};

inline constexpr std::size_t kMostInStoredBlock = 65535;
inline constexpr std::size_t kStoredBlockHeader = 5;

// How much longer openDeflateEnd can make a stream.
inline constexpr std::size_t kDeflateJoinRoom = 5;

// Turns the complete stream in the first `size` bytes of `buffer` into one that another can be
// appended to at a byte boundary; returns its new size. Nothing if the stream is not whole; the
// buffer is as it was then.
[[nodiscard]] std::optional<std::size_t> openDeflateEnd(DeflateBlockWalker& walker,
                                                        MutableBytes buffer,
                                                        std::size_t size);

// The same of a stream that holds `content`, less the first `front` bytes of that: what stands
// before the stream in the longer one has told them, and what is left refers to them there. Nothing
// also where no room is gained.
[[nodiscard]] std::optional<std::size_t> openDeflateEnds(DeflateBlockWalker& walker,
                                                         MutableBytes buffer,
                                                         std::size_t size,
                                                         ByteView content,
                                                         std::size_t front);

// The size of `size` bytes in stored blocks.
[[nodiscard]] constexpr std::size_t storedDeflateSize(std::size_t size) {
    const std::size_t blocks = (size + kMostInStoredBlock - 1) / kMostInStoredBlock;
    return size + (blocks == 0 ? 1 : blocks) * kStoredBlockHeader;
}

// Puts `content` into `buffer` as stored blocks, the last of them the stream's end if `last`.
// `buffer` has storedDeflateSize bytes.
void storeAsDeflate(ByteView content, bool last, MutableBytes buffer);

}  // namespace pellumar::archive
