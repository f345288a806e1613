#include "platform/FolderQueue.h"

#include <utility>

namespace pellumar {

void FolderQueue::async(const std::filesystem::path& place, std::function<void()> work) {
    std::unique_lock lock(lines_->mutex);
    const auto [line, isIdle] = lines_->waiting.try_emplace(place);
    line->second.push_back(std::move(work));
    lock.unlock();
    if (isIdle) {
        queue_.async([lines = lines_, place] { FolderQueue::work(*lines, place); });
    }
}

void FolderQueue::work(Lines& lines, const std::filesystem::path& place) {
    std::unique_lock lock(lines.mutex);
    for (auto line = lines.waiting.find(place); !line->second.empty(); lock.lock()) {
        const std::function<void()> next = std::move(line->second.front());
        line->second.pop_front();
        lock.unlock();
        next();
    }
    lines.waiting.erase(place);
}

}  // namespace pellumar
