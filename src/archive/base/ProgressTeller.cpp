#include "archive/base/ProgressTeller.h"

namespace pellumar::archive {

namespace {

constexpr std::chrono::milliseconds kInterval(50);

}  // namespace

void ProgressTeller::expect(std::size_t entries, std::uint64_t bytes) {
    entriesTotal_ = entries;
    bytesTotal_ = bytes;
}

void ProgressTeller::addBytes(std::uint64_t bytes, std::string_view entry) {
    if (isHeard()) {
        bytes_.fetch_add(bytes, std::memory_order_relaxed);
        tellIfDue(entry);
    }
}

void ProgressTeller::addEntry(std::string_view entry, std::size_t count) {
    if (isHeard()) {
        entries_.fetch_add(count, std::memory_order_relaxed);
        tellIfDue(entry);
    }
}

void ProgressTeller::finish() {
    if (isHeard()) {
        const std::lock_guard lock(mutex_);
        tell({});
    }
}

void ProgressTeller::tellIfDue(std::string_view entry) {
    // Another thread that tells right now tells enough.
    const std::unique_lock lock(mutex_, std::try_to_lock);
    if (!lock) {
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    if (now >= next_) {
        next_ = now + kInterval;
        tell(entry);
    }
}

void ProgressTeller::tell(std::string_view entry) {
    handler_({.entriesDone = entries_.load(std::memory_order_relaxed),
              .entriesTotal = entriesTotal_,
              .bytesDone = bytes_.load(std::memory_order_relaxed),
              .bytesTotal = bytesTotal_,
              .entry = entry});
}

}  // namespace pellumar::archive
