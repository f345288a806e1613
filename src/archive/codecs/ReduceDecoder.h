#pragma once

#include <array>
#include <cstdint>

#include "archive/codecs/Decoder.h"
#include "archive/codecs/SizedStream.h"

namespace pellumar::archive {

// Methods 2 to 5 (APPNOTE 5.2): bytes guessed from the byte before them, which spell literals and
// repetitions.
class ReduceDecoder final : public Decoder {
  public:
    explicit ReduceDecoder(const DecoderParameters& parameters);

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override {
        return stream_.decode(input, output, [this] { return advance(); });
    }
    [[nodiscard]] Result<> reset() override;

  private:
    using Progress = SizedStream::Progress;
    enum class State : std::uint8_t { kFollowerCount, kFollower, kByte, kRepeat };
    // What the next byte means (5.2.5).
    enum class Meaning : std::uint8_t { kLiteral, kLengthAndDistance, kMoreLength, kDistance };

    // Bytes that may follow one, each with a number of `bits` bits.
    struct Followers {
        std::uint8_t count = 0;
        std::uint8_t bits = 0;
        std::array<std::uint8_t, 32> bytes{};
    };

    [[nodiscard]] Progress advance();
    [[nodiscard]] Progress readFollowerCount();
    [[nodiscard]] Progress readFollower();
    [[nodiscard]] Progress readByte();
    void interpret(std::uint8_t byte);

    const unsigned factor_;

    State state_ = State::kFollowerCount;
    std::array<Followers, 256> followers_{};
    unsigned current_ = 0;   // whose followers are read, from 255 down
    unsigned follower_ = 0;  // which of them
    std::uint8_t last_ = 0;  // the byte before
    Meaning meaning_ = Meaning::kLiteral;
    std::uint8_t lengthAndDistance_ = 0;
    std::size_t length_ = 0;
    std::size_t distance_ = 0;
    SizedStream stream_;
};

}  // namespace pellumar::archive
