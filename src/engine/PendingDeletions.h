#pragma once

#include <condition_variable>
#include <deque>
#include <filesystem>
#include <memory>
#include <mutex>

#include "platform/DispatchQueue.h"

namespace pellumar {

// Folders that are out of sight already and wait to be deleted, by a queue. Any thread.
class PendingDeletions : public std::enable_shared_from_this<PendingDeletions> {
  public:
    // Without a queue there is no waiting: add() deletes. The queue must outlive its work.
    [[nodiscard]] static std::shared_ptr<PendingDeletions> on(DispatchQueue* queue);

    void add(const std::filesystem::path& folder);

    // Returns when all that was added before is gone, or cannot be deleted: lends a hand, so that
    // it may be called from the queue itself, whatever that is busy with. False if nothing waited.
    bool finish();

  private:
    explicit PendingDeletions(DispatchQueue* queue) : queue_(queue) {}

    // Deletes the next one; false if none waits.
    bool deleteNext();

    DispatchQueue* const queue_;
    std::mutex mutex_;
    std::condition_variable done_;
    std::deque<std::filesystem::path> waiting_;
    int underWay_ = 0;
};

}  // namespace pellumar
