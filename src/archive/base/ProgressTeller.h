#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <string_view>

#include "archive/base/Progress.h"

namespace pellumar::archive {

// Counts what a job has done, on any of its threads, and tells the job's handler now and then.
class ProgressTeller {
  public:
    // `handler` may be empty, and outlives this.
    explicit ProgressTeller(const ProgressHandler& handler) : handler_(handler) {}

    // Before anything is counted.
    void expect(std::size_t entries, std::uint64_t bytes);

    void addBytes(std::uint64_t bytes, std::string_view entry);
    // Or several of which that is the last.
    void addEntry(std::string_view entry, std::size_t count = 1);
    // Of bytes that were counted and will be once more.
    void takeBack(std::uint64_t bytes) {
        if (isHeard()) {
            bytes_.fetch_sub(bytes, std::memory_order_relaxed);
        }
    }
    // Tells the state at the end.
    void finish();

    [[nodiscard]] bool isHeard() const { return static_cast<bool>(handler_); }

  private:
    void tellIfDue(std::string_view entry);
    void tell(std::string_view entry);

    const ProgressHandler& handler_;
    std::size_t entriesTotal_ = 0;
    std::uint64_t bytesTotal_ = 0;
    std::atomic<std::size_t> entries_ = 0;
    std::atomic<std::uint64_t> bytes_ = 0;
    std::mutex mutex_;  // guards what follows, and the handler
    std::chrono::steady_clock::time_point next_;
};

}  // namespace pellumar::archive
