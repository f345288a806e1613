#include "analytics/EventQueue.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace pellumar {
namespace {

bool canBeDropped(const QueueItem& item) {
    return std::holds_alternative<LoggedEvent>(item.what) ||
           std::holds_alternative<UserPropertyChange>(item.what);
}

bool isFence(const QueueItem& item) {
    return std::holds_alternative<Fence>(item.what);
}

// Of two answers, that is: the later one makes the earlier superfluous.
bool isSaidAgain(const QueueItem& earlier, const QueueItem& later) {
    if (earlier.what.index() != later.what.index()) {
        return false;
    }
    if (const auto* const change = std::get_if<ConsentChange>(&earlier.what)) {
        return *change == std::get<ConsentChange>(later.what);
    }
    if (const auto* const change = std::get_if<ActivityChange>(&earlier.what)) {
        return *change == std::get<ActivityChange>(later.what);
    }
    return std::holds_alternative<InstallationReset>(earlier.what);
}

}  // namespace

EventQueue::EventQueue() {
    items_.reserve(kCapacity);
}

bool EventQueue::add(QueueItem item) {
    const std::lock_guard lock(mutex_);
    if (!makeRoom(item)) {
        return false;
    }
    bytes_ += item.bytes;
    items_.push_back(std::move(item));
    if (std::exchange(workerWaits_, false) && waker_) {
        waker_();
    }
    return true;
}

bool EventQueue::makeRoom(const QueueItem& item) {
    const bool isFull = items_.size() >= kCapacity || bytes_ + item.bytes > kMostBytes;
    if (canBeDropped(item)) {
        dropped_ += isFull ? 1 : 0;
        return !isFull;
    }
    if (isFence(item)) {
        return items_.size() < 2 * kCapacity;
    }
    if (items_.size() > kCapacity) {
        // Only such as this one and fences stand there, and no event between them.
        const auto surplus = items_.rend() - static_cast<std::ptrdiff_t>(kCapacity);
        // What a fence was promised stays in front of it.
        const auto fence = std::find_if(items_.rbegin(), surplus, isFence);
        const auto again = std::find_if(items_.rbegin(), fence, [&](const QueueItem& earlier) {
            return isSaidAgain(earlier, item);
        });
        if (again != fence) {
            items_.erase(std::next(again).base());
        }
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
