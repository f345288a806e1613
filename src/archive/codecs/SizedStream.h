#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "archive/codecs/BitReader.h"
#include "archive/codecs/Decoder.h"
#include "archive/codecs/WindowedOutput.h"

namespace pellumar::archive {

// What the methods around a window share whose streams have no end of their own (Reduce, Implode):
// bits in, bytes and repetitions out, until the declared size is reached.
class SizedStream {
  public:
    // Of one step of a method.
    enum class Progress : std::uint8_t {
        kDone,
        kWaits,  // for input or room; nothing was lost
        kDamaged
    };

    explicit SizedStream(std::uint64_t size) : size_(size) {}

    // As Decoder::reset.
    void restart() {
        left_ = size_;
        bits_.clear();
        output_.clear();
    }

    // As Decoder::decode, with as many steps as input and room allow.
    template <typename Advance>
    [[nodiscard]] Result<Decoder::Step> decode(ByteView input,
                                               MutableBytes output,
                                               const Advance& advance) {
        bits_.feed(input);
        output_.begin(output);
        Progress progress = Progress::kDone;
        while (left_ > 0 && progress == Progress::kDone) {
            progress = advance();
        }
        if (progress == Progress::kDamaged) {
            return failure(ErrorCode::kDamagedData);
        }
        if (left_ == 0) {
            bits_.giveBack();
        }
        output_.end();
        return Decoder::Step{
            .consumed = bits_.position(), .produced = output_.produced(), .finished = left_ == 0};
    }

    // For the steps:

    [[nodiscard]] BitReader& bits() { return bits_; }
    [[nodiscard]] bool isFull() const { return output_.full(); }
    // Where it is not full.
    void put(std::uint8_t byte) {
        output_.put(byte);
        --left_;
    }
    // Repeats what fits of `length` bytes from `distance` back, zeros before the beginning; leaves
    // in `length` what waits.
    [[nodiscard]] Progress repeat(std::size_t distance, std::size_t& length) {
        const std::size_t repeated = output_.repeatOrZero(
            distance, static_cast<std::size_t>(std::min<std::uint64_t>(length, left_)));
        length -= repeated;
        left_ -= repeated;
        return length == 0 ? Progress::kDone : Progress::kWaits;
    }

  private:
    const std::uint64_t size_;
    std::uint64_t left_ = 0;  // bytes to come
    BitReader bits_;
    WindowedOutput output_;
};

}  // namespace pellumar::archive
