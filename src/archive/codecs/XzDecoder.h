#pragma once

#include <algorithm>

#include "archive/codecs/Decoder.h"
#include "archive/codecs/LzmaStream.h"

namespace pellumar::archive {

// Method 95: one .xz stream with its own checks, by liblzma. Made ready by its first reset().
class XzDecoder final : public Decoder {
  public:
    explicit XzDecoder(const DecoderParameters& parameters)
        : mostMemory_(std::min(parameters.mostMemory, kLargestWindow)) {}

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override {
        return stream_.decode(input, output);
    }
    [[nodiscard]] Result<> reset() override;

  private:
    std::uint64_t mostMemory_;
    LzmaStream stream_;
};

}  // namespace pellumar::archive
