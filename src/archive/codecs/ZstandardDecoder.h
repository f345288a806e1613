#pragma once

#include <zstd.h>

#include <memory>

#include "archive/codecs/Decoder.h"

namespace pellumar::archive {

// Methods 93 and 20: one or more Zstandard frames (RFC 8878), by libzstd. Made ready by its first
// reset().
class ZstandardDecoder final : public Decoder {
  public:
    explicit ZstandardDecoder(const DecoderParameters& parameters)
        : mostMemory_(std::min(parameters.mostMemory, kLargestWindow)) {}

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

  private:
    struct Free {
        void operator()(ZSTD_DCtx* context) const { ZSTD_freeDCtx(context); }
    };

    std::uint64_t mostMemory_;
    std::unique_ptr<ZSTD_DCtx, Free> context_;
    // The last byte consumed was the last of a frame, and the frame is all put out.
    bool betweenFrames_ = false;
};

}  // namespace pellumar::archive
