#include "app/FrameWatch.h"

#include <QCoreApplication>
#include <algorithm>

#include "app/Figure.h"

namespace pellumar::bench {
namespace {

constexpr int kTurnMs = 2;

}  // namespace

FrameWatch::FrameWatch(QQuickWindow& window) : window_(window) {
    clock_.start();
    turns_.setTimerType(Qt::PreciseTimer);
    turns_.setInterval(kTurnMs);
    turns_.callOnTimeout([this] {
        const double now = milliseconds(clock_);
        longestTurn_ = std::max(longestTurn_, now - lastTurn_);
        lastTurn_ = now;
    });
    turns_.start();
    connection_ = QObject::connect(
        &window_,
        &QQuickWindow::frameSwapped,
        &window_,
        [this] { frameSwapped(); },
        Qt::DirectConnection);
}

FrameWatch::~FrameWatch() {
    QObject::disconnect(connection_);
    // One that is being told still has the lock.
    const std::lock_guard lock(mutex_);
}

void FrameWatch::frameSwapped() {
    const std::lock_guard lock(mutex_);
    const double now = milliseconds(clock_);
    longestFrame_ = std::max(longestFrame_, now - lastFrame_);
    lastFrame_ = now;
    ++frames_;
}

void FrameWatch::restart() {
    const std::lock_guard lock(mutex_);
    const double now = milliseconds(clock_);
    lastTurn_ = lastFrame_ = now;
    longestTurn_ = longestFrame_ = 0;
    frames_ = 0;
}

double FrameWatch::longestFrame() {
    const std::lock_guard lock(mutex_);
    return std::max(longestFrame_, milliseconds(clock_) - lastFrame_);
}

int FrameWatch::frames() {
    const std::lock_guard lock(mutex_);
    return frames_;
}

void FrameWatch::waitForFrame(int timeoutMs) {
    const int before = frames();
    QElapsedTimer waited;
    waited.start();
    window_.update();
    while (frames() == before && waited.elapsed() < timeoutMs) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 2);
    }
}

}  // namespace pellumar::bench
