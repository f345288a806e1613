#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace pellumar::archive {

// Large buffers of one size that are used again and again: memory fresh from the system costs more
// than what is done with it here. Any thread may take and give back.
class OutputBuffers {
  public:
    // Gives a buffer back to where it came from.
    struct GiveBack {
        OutputBuffers* owner = nullptr;
        void operator()(std::uint8_t* buffer) const;
    };
    using Buffer = std::unique_ptr<std::uint8_t[], GiveBack>;

    // All buffers of this object hold `size` bytes, and must not outlive it.
    explicit OutputBuffers(std::size_t size) : size_(size) {}

    // A buffer of arbitrary content.
    [[nodiscard]] Buffer take();

    [[nodiscard]] std::size_t size() const { return size_; }

  private:
    const std::size_t size_;
    std::mutex mutex_;  // guards what follows
    std::vector<std::unique_ptr<std::uint8_t[]>> free_;
    std::size_t made_ = 0;  // of which free_ has room for all
};

}  // namespace pellumar::archive
