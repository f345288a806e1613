#pragma once

#include <QEasingCurve>
#include <chrono>
#include <functional>

namespace pellumar {

// Moves numbers in time. For the main thread.
class Animator {
  public:
    // Progress from 0 to 1, the easing applied.
    using Step = std::function<void(qreal progress)>;
    using Finished = std::function<void()>;

    virtual ~Animator() = default;

    // Calls `step` once for each frame, the last time with 1, and `finished` after that. Both hold
    // weakly what may go meanwhile.
    virtual void animate(std::chrono::milliseconds duration,
                         const QEasingCurve& easing,
                         Step step,
                         Finished finished) = 0;
};

}  // namespace pellumar
