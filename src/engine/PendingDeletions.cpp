#include "engine/PendingDeletions.h"

#include <utility>

#include "engine/TreeRemoval.h"

namespace pellumar {

std::shared_ptr<PendingDeletions> PendingDeletions::on(DispatchQueue* queue) {
    return std::shared_ptr<PendingDeletions>(new PendingDeletions(queue));
}

void PendingDeletions::add(const std::filesystem::path& folder) {
    if (queue_ == nullptr) {
        static_cast<void>(removeTree(folder));
        return;
    }
    {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(folder);
    }
    queue_->async([self = shared_from_this()] { static_cast<void>(self->deleteNext()); });
}

bool PendingDeletions::finish() {
    bool waited = false;
    while (deleteNext()) {
        waited = true;
    }
    std::unique_lock lock(mutex_);
    waited = waited || underWay_ > 0;
    done_.wait(lock, [this] { return underWay_ == 0; });
    return waited;
}

bool PendingDeletions::deleteNext() {
    std::unique_lock lock(mutex_);
    if (waiting_.empty()) {
        return false;
    }
    const std::filesystem::path folder = std::move(waiting_.front());
    waiting_.pop_front();
    ++underWay_;
    lock.unlock();
    static_cast<void>(removeTree(folder));
    lock.lock();
    --underWay_;
    done_.notify_all();
    return true;
}

}  // namespace pellumar
