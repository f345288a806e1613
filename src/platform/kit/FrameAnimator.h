#pragma once

#include <QObject>

#include "platform/kit/Animator.h"

namespace pellumar {

// Animates in step with the frames of the window. Where the user wants nothing to move, the first
// step is the last; the time is taken all the same, as what it is for needs it. Animations that run
// when it goes away end where they are, unfinished.
class FrameAnimator : public Animator {
  public:
    // `isStill` tells whether nothing is to move; it is asked at every beginning.
    explicit FrameAnimator(std::function<bool()> isStill) : isStill_(std::move(isStill)) {}

    void animate(std::chrono::milliseconds duration,
                 const QEasingCurve& easing,
                 Step step,
                 Finished finished) override;

  private:
    std::function<bool()> isStill_;
    QObject running_;
};

}  // namespace pellumar
