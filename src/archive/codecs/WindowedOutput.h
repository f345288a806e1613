#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "archive/base/Bytes.h"

namespace pellumar::archive {

// Where a DEFLATE decoder puts its bytes and finds those it repeats: the buffer of the present step
// and, behind it, a ring of what earlier steps put out.
class WindowedOutput {
  public:
    // What Deflate64 can reach back; DEFLATE reaches half as far.
    static constexpr std::size_t kWindowSize = 65536;

    // Forgets all.
    void clear() {
        output_ = {};
        produced_ = 0;
        kept_ = 0;
    }

    // The buffer of a step; it has to live until end().
    void begin(MutableBytes output) {
        output_ = output;
        produced_ = 0;
    }

    // Keeps in the ring what the step has produced.
    void end();

    [[nodiscard]] std::size_t produced() const { return produced_; }
    [[nodiscard]] bool full() const { return produced_ == output_.size(); }

    // How many bytes back there is something to repeat, kWindowSize at most.
    [[nodiscard]] std::size_t reach() const;

    // Puts out a byte. The caller has checked that the buffer is not full.
    void put(std::uint8_t byte) { output_[produced_++] = byte; }

    // The room left, to be written to from its front; then say how much was.
    [[nodiscard]] MutableBytes room() const { return output_.subspan(produced_); }
    void advance(std::size_t size) { produced_ += size; }

    // Repeats `length` bytes from `distance` bytes back, or as many of them as there is room for.
    // Returns how many that were. The caller has checked that 0 < distance <= reach().
    [[nodiscard]] std::size_t repeat(std::size_t distance, std::size_t length);

    // The same for methods in whose streams zeros stand before the beginning: any distance up to
    // kWindowSize will do.
    [[nodiscard]] std::size_t repeatOrZero(std::size_t distance, std::size_t length);

  private:
    [[nodiscard]] std::size_t repeatKept(std::size_t distance, std::size_t length);

    MutableBytes output_;
    std::size_t produced_ = 0;
    std::array<std::uint8_t, kWindowSize> ring_;
    std::size_t ringEnd_ = 0;  // where the next byte goes
    std::size_t kept_ = 0;     // bytes in the ring
};

}  // namespace pellumar::archive
