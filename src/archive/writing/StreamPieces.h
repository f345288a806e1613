#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "archive/base/Error.h"
#include "archive/base/NewEntry.h"
#include "archive/writing/ChunkCompressor.h"

namespace pellumar::archive {

// Cuts what a stream gives into pieces, a piece ahead of what it has handed out, as the last one
// must be known for it. Belongs to one thread.
class StreamPieces {
  public:
    // `stream` lives longer.
    explicit StreamPieces(const NewEntry::Stream& stream) : stream_(stream) {}

    // Valid until the next call; to be called no more after the last piece, or an error, which is
    // that of the stream. kInvalidArgument if it says that it gave more than there was room for.
    [[nodiscard]] Result<ChunkCompressor::Piece> next();

  private:
    // Fills `ahead_` as far as the stream goes.
    [[nodiscard]] Result<> readAhead();

    const NewEntry::Stream& stream_;
    // Each a piece, and before it the end of the one before.
    std::vector<std::uint8_t> current_;
    std::vector<std::uint8_t> ahead_;
    std::uint64_t number_ = 0;  // of the next piece
};

}  // namespace pellumar::archive
