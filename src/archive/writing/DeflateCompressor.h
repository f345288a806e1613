#pragma once

#include <libdeflate.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "archive/base/Bytes.h"
#include "archive/writing/CompressibilityProbe.h"
#include "archive/writing/DeflateBlockWalker.h"

namespace pellumar::archive {

// Compresses chunks that, one after the other, are one DEFLATE stream (RFC 1951): each is
// independent of the others, so several compressors can share one entry. What comes out depends on
// the chunk alone.
//
// What does not compress goes into stored blocks. Takes about 3 MiB once used; belongs to one
// thread.
class DeflateCompressor {
  public:
    // The most that one chunk may hold.
    static constexpr std::size_t kChunkSize = 1024UL * 1024;

    // The part of the stream that holds `chunk`: whole bytes, and the stream's end if `last`. Valid
    // until the next call.
    [[nodiscard]] ByteView compress(ByteView chunk, bool last);

  private:
    struct Deleter {
        void operator()(libdeflate_compressor* compressor) const {
            libdeflate_free_compressor(compressor);
        }
    };
    using Encoder = std::unique_ptr<libdeflate_compressor, Deleter>;

    static constexpr int kHighestLevel = 12;

    // These put one run of the chunk behind the output, as the end of the stream or to be followed.
    void appendStored(ByteView run, bool last);
    // False, and nothing done, where that is no smaller than stored or there is no memory for it.
    [[nodiscard]] bool tryCompress(ByteView run, bool last);

    [[nodiscard]] MutableBytes room();
    // Null if there is no memory for it.
    [[nodiscard]] libdeflate_compressor* encoder(int level);

    CompressibilityProbe probe_;
    DeflateBlockWalker walker_;
    std::array<Encoder, kHighestLevel + 1> encoders_;
    std::unique_ptr<std::uint8_t[]> output_;
    std::size_t size_ = 0;
};

}  // namespace pellumar::archive
