#include "platform/DispatchGroup.h"

#include <utility>

namespace pellumar {

void DispatchGroup::enter() {
    const std::lock_guard lock(mutex_);
    ++entered_;
}

void DispatchGroup::leave() {
    std::vector<Notification> due;
    {
        const std::lock_guard lock(mutex_);
        if (--entered_ == 0) {
            due.swap(notifications_);
        }
    }
    for (Notification& each : due) {
        each.queue->async(std::move(each.work));
    }
}

void DispatchGroup::notify(DispatchQueue& queue, std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        if (entered_ > 0) {
            notifications_.push_back({&queue, std::move(work)});
            return;
        }
    }
    queue.async(std::move(work));
}

}  // namespace pellumar
