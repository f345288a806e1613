#pragma once

#include <libdeflate.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "archive/base/Bytes.h"
#include "archive/writing/CompressibilityProbe.h"
#include "archive/writing/DeflateBlockWalker.h"

namespace pellumar::archive {

// Compresses chunks that, one after the other, are one DEFLATE stream (RFC 1951). Each needs no
// more of the others than the content right before it, so several compressors can share one entry.
// What comes out depends on the chunk and that content alone.
//
// What does not compress goes into stored blocks. Takes about 2 MiB once used; belongs to one
// thread.
class DeflateCompressor {
  public:
    // The most that one chunk may hold.
    static constexpr std::size_t kChunkSize = 1024UL * 1024;

    // How much of the content before it a chunk is given. The whole window would take twice the
    // time for a tenth more of what is saved.
    static constexpr std::size_t kWindow = 16UL * 1024;

    // Of so many chunks the first is given nothing: from there on the entry can be read by itself.
    static constexpr std::uint32_t kChunksInSection = 8;

    // What is to be given to an entry's chunk of that number.
    [[nodiscard]] static constexpr std::size_t windowBefore(std::uint64_t chunk) {
        return chunk % kChunksInSection == 0 ? 0 : kWindow;
    }

    // Of libdeflate's levels.
    static constexpr int kHighestLevel = 12;

    // The most that a chunk can become.
    static constexpr std::size_t kMostOutput = kChunkSize + 1024;

    // Puts the part of the stream that holds `chunk` into `output`, which has room for kMostOutput
    // bytes: whole bytes, and the stream's end if `last`. Returns its size. `level` is 1 (fast) to
    // 9 (small); without one it is chosen by the data.
    //
    // The first `window` bytes of `chunk` are the content before it, which is in the stream
    // already: the chunk itself begins behind them.
    [[nodiscard]] std::size_t compress(ByteView chunk,
                                       bool last,
                                       MutableBytes output,
                                       std::optional<int> level = std::nullopt,
                                       std::size_t window = 0);

  private:
    struct Deleter {
        void operator()(libdeflate_compressor* compressor) const {
            libdeflate_free_compressor(compressor);
        }
    };
    using Encoder = std::unique_ptr<libdeflate_compressor, Deleter>;

    // Puts one run of the chunk into `output`, as the end of the stream or to be followed, and
    // returns its size. Nothing where that is no smaller than stored or there is no memory for it.
    [[nodiscard]] std::optional<std::size_t> tryCompress(ByteView run,
                                                         bool last,
                                                         MutableBytes output,
                                                         int level);
    // The same of a run, to be followed, whose first `window` bytes have gone before. Nothing also
    // where that cannot be made use of.
    [[nodiscard]] std::optional<std::size_t> tryGoingOn(ByteView run,
                                                        std::size_t window,
                                                        MutableBytes output,
                                                        int level);
    // Puts what libdeflate makes of the run into `output`; 0 if there is no memory or room for it.
    [[nodiscard]] std::size_t encode(ByteView run, MutableBytes output, int level);
    // Null if there is no memory for it.
    [[nodiscard]] libdeflate_compressor* encoder(int level);

    CompressibilityProbe probe_;
    DeflateBlockWalker walker_;
    std::array<Encoder, kHighestLevel + 1> encoders_;
};

}  // namespace pellumar::archive
