#pragma once

#include <cstdint>

#include "archive/codecs/Decoder.h"

namespace pellumar::archive {

// Method 0: the bytes themselves. They do not say where they end, so the declared size does.
class StoredDecoder final : public Decoder {
  public:
    explicit StoredDecoder(const DecoderParameters& parameters)
        : size_(parameters.uncompressedSize), left_(size_) {}

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

  private:
    std::uint64_t size_;
    std::uint64_t left_;
};

}  // namespace pellumar::archive
