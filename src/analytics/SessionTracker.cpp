#include "analytics/SessionTracker.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "analytics/InstallationIdentifier.h"

namespace pellumar {

bool SessionTracker::isAbsence(const Moment& now) const {
    if (session_.number == 0) {
        return true;
    }
    if (!seen_) {
        return std::abs(now.wall - session_.lastSeen) >= kAbsence;
    }
    // Nobody looks at what is in front of a machine that sleeps.
    const qint64 looking = active_ ? now.awake - seen_->awake : 0;
    return now.elapsed - seen_->elapsed - looking >= kAbsence;
}

void SessionTracker::begin(const Moment& now, qint64 number) {
    session_ = {.number = number, .uid = InstallationIdentifier::random(), .started = now.wall};
    touch(now);
}

void SessionTracker::join(Session session) {
    session_ = std::move(session);
}

void SessionTracker::activate(const Moment& now) {
    touch(now);
    active_ = true;
}

void SessionTracker::deactivate(const Moment& now) {
    touch(now);
    active_ = false;
}

qint64 SessionTracker::takeEngagement() {
    return std::exchange(engagement_, 0);
}

void SessionTracker::touch(const Moment& now) {
    if (active_ && seen_) {
        engagement_ += std::max<qint64>(0, now.awake - seen_->awake);
    }
    // Callers on several threads may be told of out of order.
    if (!seen_ || now.elapsed > seen_->elapsed) {
        seen_ = now;
    }
    session_.lastSeen = now.wall;
}

}  // namespace pellumar
