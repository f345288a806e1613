#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/DispatchQueue.h"

namespace pellumar {

// Something that is found out in the background for somebody on the main queue, who may lose
// interest. Whoever releases the question is not told any more.
using Question = std::shared_ptr<void>;

// Calls `find` on the background queue and `tell` with its result on the main queue, both of which
// must outlive that; `find` may ask what it is given whether anybody still wants to know. For the
// main thread.
template <typename Found>
[[nodiscard]] Question askInBackground(
    DispatchQueue& mainQueue,
    DispatchQueue& backgroundQueue,
    std::function<Found(const std::function<bool()>& isWanted)> find,
    std::function<void(const Found& found)> tell) {
    const auto question =
        std::make_shared<std::function<void(const Found& found)>>(std::move(tell));
    const std::weak_ptr<std::function<void(const Found& found)>> weak = question;
    backgroundQueue.async([weak, find = std::move(find), &mainQueue] {
        const auto isWanted = [&weak] { return !weak.expired(); };
        if (isWanted()) {
            mainQueue.async([weak, found = find(isWanted)] {
                if (const auto asker = weak.lock()) {
                    (*asker)(found);
                }
            });
        }
    });
    return question;
}

}  // namespace pellumar
