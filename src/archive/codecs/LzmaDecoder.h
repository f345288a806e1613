#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "archive/codecs/Decoder.h"
#include "archive/codecs/LzmaStream.h"

namespace pellumar::archive {

// Method 14 (APPNOTE 5.8.8): raw LZMA behind a short header, by liblzma. Where bit 1 of the general
// purpose flags is set the stream ends with a marker, else behind the declared size, and a marker
// is damage.
class LzmaDecoder final : public Decoder {
  public:
    explicit LzmaDecoder(const DecoderParameters& parameters);

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

  private:
    // Version of the LZMA SDK (2 bytes), size of the properties (2), properties (5).
    static constexpr std::size_t kHeaderSize = 9;

    [[nodiscard]] Result<> begin();

    std::uint64_t uncompressedSize_;
    bool endMarker_;
    std::uint64_t mostMemory_;
    std::array<std::uint8_t, kHeaderSize> header_{};
    std::size_t headerSize_ = 0;
    LzmaStream stream_;
};

}  // namespace pellumar::archive
