#include "platform/MainDispatchQueue.h"

#include <QCoreApplication>
#include <QEvent>
#include <memory>
#include <utility>

#include "platform/Handover.h"

namespace pellumar {
namespace {

class WorkEvent : public QEvent {
  public:
    explicit WorkEvent(std::function<void()> work) : QEvent(kType), work_(std::move(work)) {}

    void run() const { work_(); }

  private:
    // The receiver gets no other event of this type.
    static constexpr Type kType = User;

    std::function<void()> work_;
};

}  // namespace

bool MainDispatchQueue::Receiver::event(QEvent* event) {
    Handover::take(event);
    if (const auto* work = dynamic_cast<const WorkEvent*>(event)) {
        work->run();
        return true;
    }
    return QObject::event(event);
}

void MainDispatchQueue::async(std::function<void()> work) {
    auto event = std::make_unique<WorkEvent>(std::move(work));
    Handover::give(event.get());
    QCoreApplication::postEvent(&receiver_, event.release());
}

}  // namespace pellumar
