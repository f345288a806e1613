#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "archive/codecs/BitReader.h"
#include "archive/codecs/Decoder.h"

namespace pellumar::archive {

// Method 1 (APPNOTE 5.1): LZW with codes of 9 to 13 bits, whose table is cleared of all that no
// other string builds on when it is full. The stream has no end of its own; it stops where the
// declared size is reached.
class ShrinkDecoder final : public Decoder {
  public:
    explicit ShrinkDecoder(const DecoderParameters& parameters);

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

  private:
    static constexpr unsigned kLongestCode = 13;
    static constexpr std::size_t kCodes = std::size_t{1} << kLongestCode;
    static constexpr std::uint16_t kFree = 0xFFFF;  // for a prefix: the code means nothing

    // False if the stream is damaged.
    [[nodiscard]] bool take(std::uint16_t code);
    [[nodiscard]] bool control(std::uint16_t command);
    // Puts the string of `code` at the end of string_; false if it has none.
    [[nodiscard]] bool spell(std::uint16_t code);
    void clearLeaves();
    void addString(std::uint8_t last);

    const std::uint64_t size_;

    std::array<std::uint16_t, kCodes> prefixes_{};
    std::array<std::uint8_t, kCodes> suffixes_{};
    std::size_t nextFree_ = 0;  // no free code is below
    unsigned codeSize_ = 0;
    bool isControl_ = false;  // the next code is a command
    bool isFirst_ = true;
    std::uint16_t previous_ = 0;
    // The string that goes out, from stringStart_ on. It was spelt from its end.
    std::array<std::uint8_t, kCodes + 1> string_{};
    std::size_t stringStart_ = kCodes + 1;
    std::uint64_t left_ = 0;  // bytes to come
    BitReader bits_;
};

}  // namespace pellumar::archive
