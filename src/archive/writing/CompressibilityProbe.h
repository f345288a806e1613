#pragma once

#include <libdeflate.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "archive/base/Bytes.h"

namespace pellumar::archive {

// Tells from samples whether data is worth compressing, at a small part of the cost of trying. Its
// answers depend on the data alone. Belongs to one thread.
class CompressibilityProbe {
  public:
    // How much one answer is for; less at the end of a chunk.
    static constexpr std::size_t kProbedPiece = 32UL * 1024;

    // Forgets what was seen: to be called at the start of each chunk.
    void restart();

    // Whether the next piece of the chunk should be compressed.
    [[nodiscard]] bool isWorthwhile(ByteView piece);

  private:
    struct Deleter {
        void operator()(libdeflate_compressor* compressor) const {
            libdeflate_free_compressor(compressor);
        }
    };

    [[nodiscard]] bool tryPart(ByteView part);

    std::unique_ptr<libdeflate_compressor, Deleter> trial_;
    std::unique_ptr<std::uint8_t[]> trialOutput_;
    // Pieces in a row that a trial, or trust in earlier ones, found not to compress.
    unsigned failures_ = 0;
};

}  // namespace pellumar::archive
