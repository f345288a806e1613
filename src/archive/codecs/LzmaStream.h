#pragma once

#include <lzma.h>

#include "archive/codecs/Decoder.h"

namespace pellumar::archive {

// One liblzma decoder, whichever, with the results a Decoder gives.
class LzmaStream {
  public:
    LzmaStream() = default;
    ~LzmaStream() { lzma_end(&stream_); }
    LzmaStream(const LzmaStream&) = delete;
    LzmaStream& operator=(const LzmaStream&) = delete;

    // For one of the functions of liblzma that begin decoding; they keep what memory they can.
    [[nodiscard]] lzma_stream* get() { return &stream_; }

    // To be called with what that function returned.
    [[nodiscard]] Result<> begin(lzma_ret result);

    // As Decoder::decode.
    [[nodiscard]] Result<Decoder::Step> decode(ByteView input, MutableBytes output);

  private:
    lzma_stream stream_ = LZMA_STREAM_INIT;
    bool finished_ = false;
};

}  // namespace pellumar::archive
