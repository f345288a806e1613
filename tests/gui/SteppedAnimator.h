#pragma once

#include <utility>
#include <vector>

#include "platform/kit/Animator.h"

namespace pellumar::test {

// Time in a test's hand: animations end at once until it is held, and then when it is told.
class SteppedAnimator : public Animator {
  public:
    void animate(std::chrono::milliseconds /*duration*/,
                 const QEasingCurve& /*easing*/,
                 Step step,
                 Finished finished) override {
        if (isHeld_) {
            running_.push_back({std::move(step), std::move(finished)});
        } else {
            step(1);
            finished();
        }
    }

    // From now on animations begin and go no further.
    void hold() { isHeld_ = true; }
    // All that run come that far; they do not end.
    void stepTo(qreal progress) {
        for (const Running& each : std::vector(running_)) {
            each.step(progress);
        }
    }
    // All that run end; what begins meanwhile runs on.
    void finish() {
        for (const Running& each : std::exchange(running_, {})) {
            each.step(1);
            each.finished();
        }
    }
    // All that run end, and what begins with that, until nothing moves.
    void finishAll() {
        while (!running_.empty()) {
            finish();
        }
    }

  private:
    struct Running {
        Step step;
        Finished finished;
    };

    bool isHeld_ = false;
    std::vector<Running> running_;
};

}  // namespace pellumar::test
