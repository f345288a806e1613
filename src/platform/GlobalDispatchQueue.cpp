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
    WorkRunnable(std::function<void()> work, int niceness)
        : work_(std::move(work)), niceness_(niceness) {}

    void run() override {
        standBack(niceness_);
        Handover::take();
        std::exchange(work_, nullptr)();
        Handover::give();
    }

  private:
    std::function<void()> work_;
    const int niceness_;
};

}  // namespace

GlobalDispatchQueue::GlobalDispatchQueue(int niceness) : niceness_(niceness) {
    threads_.setMaxThreadCount(std::max(2, QThread::idealThreadCount()));
}

GlobalDispatchQueue::~GlobalDispatchQueue() {
    threads_.waitForDone();
    Handover::take();
}

bool GlobalDispatchQueue::waitForDone(std::chrono::milliseconds timeout) {
    const bool isDone = threads_.waitForDone(static_cast<int>(timeout.count()));
    Handover::take();
    return isDone;
}

void GlobalDispatchQueue::async(std::function<void()> work) {
    auto runnable = std::make_unique<WorkRunnable>(std::move(work), niceness_);
    Handover::give();
    threads_.start(runnable.release());
}

}  // namespace pellumar
