#include "archive/codecs/WindowedOutput.h"

#include <algorithm>
#include <cstring>

namespace pellumar::archive {

void WindowedOutput::end() {
    const ByteView bytes = output_.first(produced_).last(std::min(produced_, kWindowSize));
    const ByteView first = bytes.first(std::min(bytes.size(), kWindowSize - ringEnd_));
    const ByteView second = bytes.subspan(first.size());
    std::copy(first.begin(), first.end(), ring_.data() + ringEnd_);
    std::copy(second.begin(), second.end(), ring_.data());
    ringEnd_ = (ringEnd_ + bytes.size()) % kWindowSize;
    kept_ = std::min(kept_ + bytes.size(), kWindowSize);
}

std::size_t WindowedOutput::reach() const {
    return std::min(kept_ + produced_, kWindowSize);
}

std::size_t WindowedOutput::repeat(std::size_t distance, std::size_t length) {
    const std::size_t size = std::min(length, output_.size() - produced_);
    std::size_t done = 0;
    while (done < size && distance > produced_) {
        done += repeatKept(distance, size - done);
    }
    const std::size_t rest = size - done;
    if (rest == 0) {
        return size;
    }
    // A match may overlap what it makes: then it repeats itself, and has to go byte by byte.
    std::uint8_t* to = output_.data() + produced_;
    const std::uint8_t* from = to - distance;
    if (distance >= rest) {
        std::copy_n(from, rest, to);
    } else {
        for (std::size_t i = 0; i < rest; ++i) {
            to[i] = from[i];
        }
    }
    produced_ += rest;
    return size;
}

std::size_t WindowedOutput::repeatOrZero(std::size_t distance, std::size_t length) {
    std::size_t zeros = 0;
    while (zeros < length && !full() && distance > reach()) {
        put(0);
        ++zeros;
    }
    return zeros + (zeros < length && !full() ? repeat(distance, length - zeros) : 0);
}

// The part of a match that lies in the ring, up to the ring's edge or the present buffer.
std::size_t WindowedOutput::repeatKept(std::size_t distance, std::size_t length) {
    const std::size_t back = distance - produced_;
    const std::size_t start = (ringEnd_ + kWindowSize - back) % kWindowSize;
    const std::size_t size = std::min({length, back, kWindowSize - start});
    std::memcpy(output_.data() + produced_, ring_.data() + start, size);
    produced_ += size;
    return size;
}

}  // namespace pellumar::archive
