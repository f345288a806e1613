#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "archive/base/Bytes.h"

namespace pellumar::archive {

// The bits of a stream, the lowest of each byte first, as DEFLATE (RFC 1951, 3.1.1) and the older
// methods have them, out of input that comes in pieces. Up to eight bytes are held; give them back
// before a piece goes, or they are taken for consumed.
class BitReader {
  public:
    void clear() {
        bits_ = 0;
        count_ = 0;
    }

    // The next piece. It has to live until giveBack(), or until all of it is used.
    void feed(ByteView input) {
        input_ = input;
        position_ = 0;
    }

    // Bytes of the piece that were read.
    [[nodiscard]] std::size_t position() const { return position_; }

    // Reads bytes until at least `count` bits (56 at most) are held; false if there are no more.
    [[nodiscard]] bool fill(unsigned count) {
        while (count_ < count) {
            if (position_ == input_.size()) {
                return false;
            }
            bits_ |= std::uint64_t{input_[position_]} << count_;
            ++position_;
            count_ += 8;
        }
        return true;
    }

    // Bits held.
    [[nodiscard]] unsigned available() const { return count_; }

    // The held bits, zeros above them.
    [[nodiscard]] std::uint64_t peek() const { return bits_; }

    // The lowest `count` bits, 32 at most.
    [[nodiscard]] std::uint32_t peek(unsigned count) const {
        return static_cast<std::uint32_t>(bits_ & ((std::uint64_t{1} << count) - 1));
    }

    // Forgets the lowest `count` bits, which have to be held.
    void drop(unsigned count) {
        bits_ >>= count;
        count_ -= count;
    }

    // Goes to the next byte boundary of the stream.
    void align() { drop(count_ % 8); }

    // Unreads the whole bytes that are held and came from this piece.
    void giveBack() {
        const std::size_t bytes = std::min<std::size_t>(count_ / 8, position_);
        position_ -= bytes;
        count_ -= static_cast<unsigned>(bytes * 8);
        bits_ &= (std::uint64_t{1} << count_) - 1;
    }

    // Copies whole bytes straight from the piece. The caller has aligned and used or given back
    // what is held. Returns how many there were.
    [[nodiscard]] std::size_t copy(MutableBytes output) {
        const std::size_t size = std::min(output.size(), input_.size() - position_);
        std::copy_n(input_.begin() + static_cast<std::ptrdiff_t>(position_), size, output.begin());
        position_ += size;
        return size;
    }

  private:
    ByteView input_;
    std::size_t position_ = 0;
    std::uint64_t bits_ = 0;
    unsigned count_ = 0;
};

}  // namespace pellumar::archive
