#pragma once

#include <functional>
#include <list>
#include <utility>

#include "platform/DispatchQueue.h"

namespace pellumar::test {

// A queue that runs its work when told, on the telling thread. One thread only.
class ManualDispatchQueue : public DispatchQueue {
  public:
    void async(std::function<void()> work) override { waiting_.push_back(std::move(work)); }

    // Runs what waits, and what that brings, until nothing is left.
    void runAll() {
        while (!waiting_.empty()) {
            const std::function<void()> work = std::move(waiting_.front());
            waiting_.pop_front();
            work();
        }
    }

    // Runs what was given last, before all that waits.
    void runLast() {
        const std::function<void()> work = std::move(waiting_.back());
        waiting_.pop_back();
        work();
    }

  private:
    std::list<std::function<void()>> waiting_;
};

}  // namespace pellumar::test
