#include "platform/GlobalDispatchQueue.h"

#include <sys/resource.h>
#include <unistd.h>
#include <QRunnable>
#include <QThread>
#include <algorithm>
#include <memory>
#include <utility>

#include "platform/Handover.h"

namespace pellumar {
namespace {

// Linux counts niceness by thread, and hands it on to those that a thread starts. A thread of a
// pool has one queue, so once is enough. Nothing depends on it having worked.
void standBack(int niceness) {
    thread_local bool hasStoodBack = false;
    if (!std::exchange(hasStoodBack, true) && niceness > 0) {
        const auto self = static_cast<id_t>(gettid());
        static_cast<void>(
            setpriority(PRIO_PROCESS, self, getpriority(PRIO_PROCESS, self) + niceness));
    }
}

class WorkRunnable : public QRunnable {
  public:
    // `queue` is what is told when the work is done and gone.
    WorkRunnable(std::function<void()> work, int niceness, GlobalDispatchQueue* queue)
        : work_(std::move(work)), niceness_(niceness), queue_(queue) {}

    void run() override {
        Handover::take(this);
        standBack(niceness_);
        std::exchange(work_, nullptr)();
        Handover::give(queue_);
    }

  private:
    std::function<void()> work_;
    const int niceness_;
    GlobalDispatchQueue* const queue_;
};

}  // namespace

GlobalDispatchQueue::GlobalDispatchQueue(int niceness)
    : GlobalDispatchQueue(niceness, std::max(2, QThread::idealThreadCount())) {}

GlobalDispatchQueue::GlobalDispatchQueue(int niceness, int threads) : niceness_(niceness) {
    threads_.setMaxThreadCount(threads);
}

GlobalDispatchQueue::~GlobalDispatchQueue() {
    threads_.waitForDone();
    Handover::take(this);
}

bool GlobalDispatchQueue::waitForDone(std::chrono::milliseconds timeout) {
    const bool isDone = threads_.waitForDone(static_cast<int>(timeout.count()));
    if (isDone) {
        Handover::take(this);
    }
    return isDone;
}

void GlobalDispatchQueue::async(std::function<void()> work) {
    auto runnable = std::make_unique<WorkRunnable>(std::move(work), niceness_, this);
    Handover::give(runnable.get());
    threads_.start(runnable.release());
}

}  // namespace pellumar
