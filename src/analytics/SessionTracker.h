#pragma once

#include <optional>

#include "analytics/AnalyticsClock.h"

namespace pellumar {

// Where one session ends and the next begins: after half an hour in which the application was
// neither in front nor said anything, or the machine slept. A value: a copy of it is what an undone
// change goes back to.
//
// Within a process time is told by the clock that nobody sets. Between two of them there is only
// the wall clock; one that has been set back by more than half an hour says nothing of the absence,
// so a session begins then too.
class SessionTracker {
  public:
    static constexpr qint64 kAbsence = 30LL * 60 * 1000;

    // `lastSeen` by the wall clock, by an earlier process; nothing: no session goes on.
    explicit SessionTracker(std::optional<qint64> lastSeen) : lastSeen_(lastSeen) {}

    // Whether a session has to begin before anything else is told.
    [[nodiscard]] bool isAbsence(const Moment& now) const;
    // The one that was is over.
    void end();
    // Something happened within the session.
    void touch(const Moment& now);
    // The application is in front from now on, or is not; the same again changes nothing.
    void setInFront(bool inFront, const Moment& now);
    // The application has been in front all the time, though nothing could be kept of it.
    void resume(const Moment& now);
    [[nodiscard]] bool isInFront() const { return inFront_; }

    // How long the user has had the application in front since the last call, in milliseconds.
    [[nodiscard]] qint64 takeEngagement();

  private:
    std::optional<qint64> lastSeen_;
    // When this process last saw something, and whether that was in the session that goes on.
    std::optional<Moment> seen_;
    bool inFront_ = false;
    qint64 engagement_ = 0;
};

}  // namespace pellumar
