#include "archive/writing/StreamPieces.h"

#include <algorithm>
#include <utility>

#include "archive/base/Crc32.h"

namespace pellumar::archive {

namespace {

// With what went before it.
constexpr std::size_t kFullPiece = DeflateCompressor::kWindow + ChunkCompressor::kChunkSize;

}  // namespace

Result<> StreamPieces::readAhead() {
    ahead_.resize(kFullPiece);
    if (current_.size() == kFullPiece) {
        std::copy(current_.end() - DeflateCompressor::kWindow, current_.end(), ahead_.begin());
    }
    std::size_t size = DeflateCompressor::kWindow;
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
    const std::uint64_t number = number_++;
    if (number == 0) {
        if (auto read = readAhead(); !read) {
            return passOn(read);
        }
    }
    std::swap(current_, ahead_);
    // A piece that is not full was the last; the stream is not asked again.
    bool last = current_.size() < kFullPiece;
    if (!last) {
        if (auto read = readAhead(); !read) {
            return passOn(read);
        }
        last = ahead_.size() == DeflateCompressor::kWindow;
    }
    const ByteView content = ByteView(current_).subspan(DeflateCompressor::kWindow);
    return ChunkCompressor::Piece{.content = content,
                                  .window = DeflateCompressor::windowBefore(number),
                                  .crc32 = crc32(kCrc32OfNothing, content),
                                  .first = number == 0,
                                  .last = last};
}

}  // namespace pellumar::archive
