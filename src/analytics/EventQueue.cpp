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
    const bool isFull = items_.size() >= kCapacity || bytes_ + item.bytes > kMostBytes;
    if (isFull && canBeDropped(item)) {
        ++dropped_;
        return false;
    }
    bytes_ += item.bytes;
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
    bytes_ = 0;
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
