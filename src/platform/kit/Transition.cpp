#include "platform/kit/Transition.h"

#include <utility>

namespace pellumar {

bool Transition::come(std::chrono::milliseconds duration, Then here) {
    if (state_ != State::kGone) {
        return false;
    }
    move(State::kComing, duration, std::move(here));
    return true;
}

bool Transition::leave(std::chrono::milliseconds duration, Then gone) {
    if (!canLeave()) {
        return false;
    }
    move(State::kLeaving, duration, std::move(gone));
    return true;
}

void Transition::whenSettled(Then then) {
    if (isMoving()) {
        waiting_.push_back(std::move(then));
    } else {
        then();
    }
}

void Transition::move(State state, std::chrono::milliseconds duration, Then then) {
    state_ = state;
    then_ = std::move(then);
    move_ = std::make_shared<char>();
    const std::weak_ptr<char> own = move_;
    changed_();
    if (own.expired()) {
        return;
    }
    if (duration == kAtOnce) {
        hurry();
        return;
    }
    const qreal from = presence_;
    const qreal to = isLeaving() ? 0 : 1;
    animator_.animate(
        duration,
        isLeaving() ? QEasingCurve::InCubic : QEasingCurve::OutCubic,
        [this, own, from, to](qreal progress) {
            if (!own.expired()) {
                presence_ = from + (to - from) * progress;
                changed_();
            }
        },
        [this, own] {
            if (!own.expired()) {
                hurry();
            }
        });
}

void Transition::hurry() {
    if (!isMoving()) {
        return;
    }
    move_.reset();
    state_ = isLeaving() ? State::kGone : State::kHere;
    presence_ = isHere() ? 1 : 0;
    const Then then = std::exchange(then_, {});
    const std::vector<Then> waiting = std::exchange(waiting_, {});
    changed_();
    if (then) {
        then();
    }
    for (const Then& next : waiting) {
        next();
    }
}

}  // namespace pellumar
