#pragma once

#include <lzma.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "archive/codecs/Decoder.h"

namespace pellumar::archive {

// What liblzma decodes. Method 14 (APPNOTE 5.8.8) is raw LZMA behind a short header: where bit 1 of
// the general purpose flags is set the stream ends with a marker, else behind the declared size,
// and a marker is damage. Method 95 is one .xz stream with its own checks.
class LzmaDecoder final : public Decoder {
  public:
    explicit LzmaDecoder(const DecoderParameters& parameters);
    LzmaDecoder(const LzmaDecoder&) = delete;
    LzmaDecoder& operator=(const LzmaDecoder&) = delete;
    ~LzmaDecoder() override { lzma_end(&stream_); }

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

  private:
    // Version of the LZMA SDK (2 bytes), size of the properties (2), properties (5).
    static constexpr std::size_t kHeaderSize = 9;

    [[nodiscard]] Result<> beginRaw();
    // To be called with what a function of liblzma that begins decoding has returned; they keep
    // what memory they can.
    [[nodiscard]] Result<> begun(lzma_ret result);

    const DecoderParameters parameters_;
    const std::uint64_t mostMemory_;
    std::array<std::uint8_t, kHeaderSize> header_{};
    std::size_t headerLeft_ = 0;  // of it to come
    lzma_stream stream_ = LZMA_STREAM_INIT;
    bool finished_ = false;
};

}  // namespace pellumar::archive
