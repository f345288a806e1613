#pragma once

#include <QThreadPool>
#include <chrono>

#include "platform/DispatchQueue.h"

namespace pellumar {

// A concurrent queue for work that the user waits for: as many pieces at once as there are
// processors, and never fewer than two, so that one long job does not hold up the next. Going
// away, it waits for all that it was given.
//
// `niceness`, 0 to 19, is how far its threads, and those that they start, stand back where there
// are more threads than processors, as nice(1) counts: what draws a window must not wait for work.
class GlobalDispatchQueue : public DispatchQueue {
  public:
    explicit GlobalDispatchQueue(int niceness = 0);
    // With this many pieces at once instead: for work that mostly waits, and may hang, as a look
    // into a folder on a network does. What hangs holds up nothing else while there are fewer.
    GlobalDispatchQueue(int niceness, int threads);
    ~GlobalDispatchQueue() override;
    GlobalDispatchQueue(const GlobalDispatchQueue&) = delete;
    GlobalDispatchQueue& operator=(const GlobalDispatchQueue&) = delete;

    void async(std::function<void()> work) override;

    // Waits until there is no work, from any thread but the queue's; false if it does not come to
    // that in time.
    [[nodiscard]] bool waitForDone(std::chrono::milliseconds timeout);

  private:
    const int niceness_;
    QThreadPool threads_;
};

}  // namespace pellumar
