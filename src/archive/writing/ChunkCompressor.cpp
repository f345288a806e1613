#include "archive/writing/ChunkCompressor.h"

#include <algorithm>
#include <utility>

namespace pellumar::archive {

namespace {

// Larger results are handed over in the buffer they are in; many small ones would waste it.
constexpr std::size_t kLargestCopied = 64UL * 1024;

}  // namespace

Result<CompressedChunk> ChunkCompressor::compress(const Piece& piece, const EntryOptions& options) {
    if (!output_) {
        output_ = buffers_.take();
    }
    CompressedChunk chunk;
    if (piece.first && options.password) {
        auto encryptor = makeEncryptor(options.encryption, *options.password);
        if (!encryptor) {
            return passOn(encryptor);
        }
        chunk.encryptor = std::move(*encryptor);
    }
    if (piece.stored) {
        std::copy(piece.content.begin(), piece.content.end(), output_.get());
        chunk.size = piece.content.size();
    } else {
        const ByteView known(piece.content.data() - piece.window,
                             piece.content.size() + piece.window);
        chunk.size = compressor_.compress(known,
                                          piece.last,
                                          MutableBytes(output_.get(), buffers_.size()),
                                          options.level,
                                          piece.window);
    }
    chunk.uncompressedSize = piece.content.size();
    chunk.crc32 = piece.crc32;
    chunk.last = piece.last;
    if (chunk.size > kLargestCopied) {
        chunk.buffer = std::move(output_);
    } else {
        chunk.small.assign(output_.get(), output_.get() + chunk.size);
    }
    return chunk;
}

}  // namespace pellumar::archive
