#pragma once

#include "archive/codecs/Decoder.h"
#include "archive/codecs/LzmaStream.h"

namespace pellumar::archive {

// Method 95: one .xz stream with its own checks, by liblzma. Made ready by its first reset().
class XzDecoder final : public Decoder {
  public:
    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override {
        return stream_.decode(input, output);
    }
    [[nodiscard]] Result<> reset() override;

  private:
    LzmaStream stream_;
};

}  // namespace pellumar::archive
