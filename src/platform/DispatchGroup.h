#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/DispatchQueue.h"

namespace pellumar {

// Counts pieces of work, and tells when none is left. For any thread; held by those who will leave
// it.
class DispatchGroup {
  public:
    void enter();
    // Once for each enter().
    void leave();
    // Gives `work` to the queue as soon as the group is empty, which it may be already. It never is
    // if somebody forgets to leave, and `work` goes with the group. The queue must outlive it.
    void notify(DispatchQueue& queue, std::function<void()> work);

  private:
    struct Notification {
        DispatchQueue* queue;
        std::function<void()> work;
    };

    std::mutex mutex_;
    int entered_ = 0;
    std::vector<Notification> notifications_;
};

}  // namespace pellumar
