#include "platform/GlobalDispatchQueue.h"

#include <QRunnable>
#include <QThread>
#include <algorithm>
#include <memory>
#include <utility>

#include "platform/Handover.h"

namespace pellumar {
namespace {

class WorkRunnable : public QRunnable {
  public:
    explicit WorkRunnable(std::function<void()> work) : work_(std::move(work)) {}

    void run() override {
        Handover::take();
        std::exchange(work_, nullptr)();
        Handover::give();
    }

  private:
    std::function<void()> work_;
};

}  // namespace

GlobalDispatchQueue::GlobalDispatchQueue() {
    threads_.setMaxThreadCount(std::max(2, QThread::idealThreadCount()));
}

GlobalDispatchQueue::~GlobalDispatchQueue() {
    threads_.waitForDone();
    Handover::take();
}

void GlobalDispatchQueue::async(std::function<void()> work) {
    auto runnable = std::make_unique<WorkRunnable>(std::move(work));
    Handover::give();
    threads_.start(runnable.release());
}

}  // namespace pellumar
