#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "archive/codecs/Decoder.h"
#include "archive/codecs/SizedStream.h"

namespace pellumar::archive {

// A Shannon-Fano code as method 6 has it (APPNOTE 5.3.7 to 5.3.9): the last of the longest codes is
// all zeros, and codes count up towards the shorter ones.
class ShannonFanoCode {
  public:
    static constexpr unsigned kLongest = 16;
    static constexpr std::size_t kMostSymbols = 256;

    // From each symbol's length, 1 to kLongest. False if that is no complete code.
    [[nodiscard]] bool build(std::span<const std::uint8_t> lengths);

    struct Symbol {
        unsigned length = 0;  // 0: more bits are needed
        std::uint8_t value = 0;
    };
    // The symbol at the lowest of `bits`, of which `available` are known.
    [[nodiscard]] Symbol find(std::uint64_t bits, unsigned available) const;

  private:
    std::array<std::uint16_t, kLongest + 1> counts_{};
    std::array<std::uint8_t, kMostSymbols> symbols_{};  // by length, then value
};

// Method 6 (APPNOTE 5.3): repetitions within a window of 4 or 8 KiB, by two or three Shannon-Fano
// codes; bits 1 and 2 of the flags say which.
class ImplodeDecoder final : public Decoder {
  public:
    explicit ImplodeDecoder(const DecoderParameters& parameters);

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override {
        return stream_.decode(input, output, [this] { return advance(); });
    }
    [[nodiscard]] Result<> reset() override;

  private:
    using Progress = SizedStream::Progress;
    enum class State : std::uint8_t {
        kCodeSize,
        kCodeLengths,
        kSymbol,
        kDistance,
        kLength,
        kRepeat
    };
    enum Code : std::uint8_t { kLiterals, kLengths, kDistances, kCodes };

    [[nodiscard]] Progress advance();
    [[nodiscard]] Progress readCodeSize();
    [[nodiscard]] Progress readCodeLengths();
    // The symbol behind so many held bits; of length 0 if there are too few.
    [[nodiscard]] ShannonFanoCode::Symbol next(Code code, unsigned skipped);
    [[nodiscard]] Progress readSymbol();
    [[nodiscard]] Progress readDistance();
    [[nodiscard]] Progress readLength();
    [[nodiscard]] Progress repeat();

    const bool hasLiteralCode_;
    const unsigned lowDistanceBits_;

    State state_ = State::kCodeSize;
    std::array<ShannonFanoCode, kCodes> codes_;
    unsigned code_ = kLiterals;  // which of them is read
    std::size_t lengthBytes_ = 0;
    std::array<std::uint8_t, ShannonFanoCode::kMostSymbols> codeLengths_{};
    std::size_t symbols_ = 0;  // of which the length is known
    std::size_t length_ = 0;
    std::size_t distance_ = 0;
    SizedStream stream_;
};

}  // namespace pellumar::archive
