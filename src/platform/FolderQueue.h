#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>

#include "platform/DispatchQueue.h"

namespace pellumar {

// Work at places of the file system that may hang, as a folder on a network does: one piece at a
// time for each place, in the order given. So a place that hangs takes one thread of the queue
// behind this, however often it is asked for. From any thread; the queue must outlive all work.
class FolderQueue {
  public:
    explicit FolderQueue(DispatchQueue& queue) : queue_(queue) {}

    void async(const std::filesystem::path& place, std::function<void()> work);

  private:
    struct Lines {
        std::mutex mutex;
        // What waits at each place where something is going on.
        std::map<std::filesystem::path, std::deque<std::function<void()>>> waiting;
    };
    static void work(Lines& lines, const std::filesystem::path& place);

    DispatchQueue& queue_;
    const std::shared_ptr<Lines> lines_ = std::make_shared<Lines>();
};

}  // namespace pellumar
