#pragma once

#include <array>
#include <cstdint>

#include "archive/codecs/BitReader.h"
#include "archive/codecs/Decoder.h"
#include "archive/codecs/WindowedOutput.h"

namespace pellumar::archive {

// Methods 2 to 5 (APPNOTE 5.2): bytes guessed from the byte before them, which spell literals and
// repetitions. The stream has no end of its own; it stops where the declared size is reached.
class ReduceDecoder final : public Decoder {
  public:
    explicit ReduceDecoder(const DecoderParameters& parameters);

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

  private:
    enum class State : std::uint8_t { kFollowerCount, kFollower, kByte, kRepeat };
    // What the next byte means (5.2.5).
    enum class Meaning : std::uint8_t { kLiteral, kLengthAndDistance, kMoreLength, kDistance };

    // Bytes that may follow one, each with a number of `bits` bits.
    struct Followers {
        std::uint8_t count = 0;
        std::uint8_t bits = 0;
        std::array<std::uint8_t, 32> bytes{};
    };

    // These go on as far as input and room reach; false if they do not reach.
    [[nodiscard]] bool advance();
    [[nodiscard]] bool readFollowerCount();
    [[nodiscard]] bool readFollower();
    [[nodiscard]] bool readByte();
    void interpret(std::uint8_t byte);

    const unsigned factor_;
    const std::uint64_t size_;

    State state_ = State::kFollowerCount;
    std::array<Followers, 256> followers_{};
    unsigned current_ = 0;   // whose followers are read, from 255 down
    unsigned follower_ = 0;  // which of them
    std::uint8_t last_ = 0;  // the byte before
    Meaning meaning_ = Meaning::kLiteral;
    std::uint8_t lengthAndDistance_ = 0;
    std::size_t length_ = 0;
    std::size_t distance_ = 0;
    std::uint64_t left_ = 0;  // bytes to come
    BitReader bits_;
    WindowedOutput output_;
};

}  // namespace pellumar::archive
