#include "analytics/EventQueue.h"

#include <utility>

namespace pellumar {
namespace {

bool canBeDropped(const QueueItem& item) {
    return std::holds_alternative<LoggedEvent>(item.what) ||
           std::holds_alternative<UserPropertyChange>(item.what);
}

}  // namespace

EventQueue::EventQueue() {
    items_.reserve(kCapacity);
}

bool EventQueue::add(QueueItem item) {
    const std::lock_guard lock(mutex_);
    if (items_.size() >= kCapacity && canBeDropped(item)) {
        ++dropped_;
        return false;
    }
    items_.push_back(std::move(item));
    if (std::exchange(workerWaits_, false) && waker_) {
        waker_();
    }
    return true;
}

void EventQueue::take(std::vector<QueueItem>& items) {
    items.reserve(kCapacity);
    const std::lock_guard lock(mutex_);
    items.swap(items_);
    workerWaits_ = items.empty();
}

qint64 EventQueue::takeDropped() {
    const std::lock_guard lock(mutex_);
    return std::exchange(dropped_, 0);
}

void EventQueue::setWaker(std::function<void()> waker) {
    const std::lock_guard lock(mutex_);
    waker_ = std::move(waker);
}

}  // namespace pellumar
