#pragma once

#include <QString>
#include <QtGlobal>
#include <optional>

#include "analytics/AnalyticsClock.h"

namespace pellumar {

// A session as it is kept. Times are milliseconds, moments since 1970 in UTC.
struct Session {
    // Counts from 1; 0: there has been none.
    qint64 number = 0;
    QString uid;
    qint64 started = 0;
    qint64 lastSeen = 0;

    friend bool operator==(const Session&, const Session&) = default;
};

// Where one session ends and the next begins: after half an hour in which the application was
// neither in front nor said anything, or the machine slept. A value: a copy of it is what an undone
// transaction goes back to.
//
// Within a process time is told by the clock that nobody sets. Between two of them there is only
// the wall clock; one that has been set back by more than half an hour says nothing of the absence,
// so a session begins then too.
class SessionTracker {
  public:
    static constexpr qint64 kAbsence = 30LL * 60 * 1000;

    // Goes on with what an earlier process kept.
    explicit SessionTracker(Session last) : session_(std::move(last)) {}

    [[nodiscard]] const Session& session() const { return session_; }
    [[nodiscard]] bool isActive() const { return active_; }

    // Whether a session has to begin before anything else is told.
    [[nodiscard]] bool isAbsence(const Moment& now) const;
    void begin(const Moment& now, qint64 number);
    // Goes on with one that another process has begun.
    void join(Session session);
    // Something happened within the session.
    void touch(const Moment& now);

    // The application came to the front or left it; the same again changes nothing.
    void activate(const Moment& now);
    void deactivate(const Moment& now);

    // How long the user has had this process in front since the last call, within the session.
    [[nodiscard]] qint64 takeEngagement();

  private:
    Session session_;
    qint64 engagement_ = 0;
    bool active_ = false;
    // When this process last saw something.
    std::optional<Moment> seen_;
};

}  // namespace pellumar
