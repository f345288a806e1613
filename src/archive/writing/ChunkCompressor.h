#pragma once

#include <cstdint>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/writing/ArchiveWriter.h"
#include "archive/writing/CompressionQueue.h"
#include "archive/writing/DeflateCompressor.h"
#include "archive/writing/OutputBuffers.h"

namespace pellumar::archive {

// Turns pieces of files into the chunks that stand in the archive. Belongs to one thread.
class ChunkCompressor {
  public:
    // The most that a piece may hold; all but the last hold as much.
    static constexpr std::size_t kChunkSize = DeflateCompressor::kChunkSize;

    // `buffers` lives longer, and than what comes out.
    explicit ChunkCompressor(OutputBuffers& buffers) : buffers_(buffers) {}

    // A piece of an entry: its bytes, their checksum, and where in the entry it stands.
    struct Piece {
        ByteView content;
        std::size_t window = 0;  // of what lies before `content` in memory, and in the entry
        std::uint32_t crc32 = 0;
        bool first = false;
        bool last = false;
        bool stored = false;  // goes in as it is
    };

    // kEncryptionNotInstalled, kOutOfMemory of what encrypts the entry.
    [[nodiscard]] Result<CompressedChunk> compress(const Piece& piece, const EntryOptions& options);

  private:
    OutputBuffers& buffers_;
    DeflateCompressor compressor_;
    OutputBuffers::Buffer output_;
};

}  // namespace pellumar::archive
