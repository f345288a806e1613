#pragma once

#include <bzlib.h>

#include "archive/codecs/Decoder.h"

namespace pellumar::archive {

// Method 12: one bzip2 stream, by libbz2. Under 4 MiB. Made ready by its first reset().
class Bzip2Decoder final : public Decoder {
  public:
    Bzip2Decoder() = default;
    ~Bzip2Decoder() override;
    Bzip2Decoder(const Bzip2Decoder&) = delete;
    Bzip2Decoder& operator=(const Bzip2Decoder&) = delete;

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

  private:
    bz_stream stream_{};
    bool finished_ = false;
};

}  // namespace pellumar::archive
