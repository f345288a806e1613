#include "analytics/SessionTracker.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace pellumar {

bool SessionTracker::isAbsence(const Moment& now) const {
    if (!lastSeen_) {
        return true;
    }
    if (!seen_) {
        return std::abs(now.wall - *lastSeen_) >= kAbsence;
    }
    // Nobody looks at what is in front of a machine that sleeps.
    const qint64 looking = inFront_ ? now.awake - seen_->awake : 0;
    return now.elapsed - seen_->elapsed - looking >= kAbsence;
}

void SessionTracker::end() {
    lastSeen_.reset();
}

void SessionTracker::touch(const Moment& now) {
    if (inFront_ && seen_) {
        engagement_ += std::max<qint64>(0, now.awake - seen_->awake);
    }
    // Callers on several threads may be told of out of order.
    if (!seen_ || now.elapsed > seen_->elapsed) {
        seen_ = now;
    }
    lastSeen_ = now.wall;
}

void SessionTracker::setInFront(bool inFront, const Moment& now) {
    touch(now);
    inFront_ = inFront;
}

void SessionTracker::resume(const Moment& now) {
    seen_ = now;
    inFront_ = true;
}

qint64 SessionTracker::takeEngagement() {
    return std::exchange(engagement_, 0);
}

}  // namespace pellumar
