#include "archive/writing/StreamPieces.h"

#include <utility>

#include "archive/base/Crc32.h"

namespace pellumar::archive {

Result<> StreamPieces::readAhead() {
    ahead_.resize(ChunkCompressor::kChunkSize);
    std::size_t size = 0;
    while (size < ahead_.size()) {
        const MutableBytes room = MutableBytes(ahead_).subspan(size);
        auto count = stream_(room);
        if (!count) {
            return passOn(count);
        }
        if (*count > room.size()) {
            return failure(ErrorCode::kInvalidArgument);
        }
        if (*count == 0) {
            break;
        }
        size += *count;
    }
    ahead_.resize(size);
    return {};
}

Result<ChunkCompressor::Piece> StreamPieces::next() {
    const bool first = !std::exchange(begun_, true);
    if (first) {
        if (auto read = readAhead(); !read) {
            return passOn(read);
        }
    }
    std::swap(current_, ahead_);
    // A piece that is not full was the last; the stream is not asked again.
    bool last = current_.size() < ChunkCompressor::kChunkSize;
    if (!last) {
        if (auto read = readAhead(); !read) {
            return passOn(read);
        }
        last = ahead_.empty();
    }
    return ChunkCompressor::Piece{.content = current_,
                                  .crc32 = crc32(kCrc32OfNothing, current_),
                                  .first = first,
                                  .last = last};
}

}  // namespace pellumar::archive
