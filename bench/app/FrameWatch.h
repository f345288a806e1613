#pragma once

#include <QElapsedTimer>
#include <QQuickWindow>
#include <QTimer>
#include <mutex>

namespace pellumar::bench {

// Watches how long a window goes without a new frame, and its main thread without a turn of the
// event loop. For the main thread.
class FrameWatch {
  public:
    explicit FrameWatch(QQuickWindow& window);
    ~FrameWatch();
    FrameWatch(const FrameWatch&) = delete;
    FrameWatch& operator=(const FrameWatch&) = delete;

    // Forgets what has been. The next frame counts from now.
    void restart();
    // In milliseconds; one that has not ended counts as long as it has lasted.
    [[nodiscard]] double longestFrame();
    [[nodiscard]] double longestTurn() const { return longestTurn_; }
    [[nodiscard]] int frames();

    // Runs the event loop until the next frame, or for so long.
    void waitForFrame(int timeoutMs = 10000);

  private:
    void frameSwapped();

    QQuickWindow& window_;
    QElapsedTimer clock_;
    QTimer turns_;
    double lastTurn_ = 0;
    double longestTurn_ = 0;
    // Frames are told on the thread that renders.
    std::mutex mutex_;
    double lastFrame_ = 0;
    double longestFrame_ = 0;
    int frames_ = 0;
    QMetaObject::Connection connection_;
};

}  // namespace pellumar::bench
