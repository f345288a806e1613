#pragma once

#include <QString>
#include <optional>

#include "analytics/AnalyticsEnvironment.h"
#include "analytics/Intake.h"
#include "platform/crashes/CrashReport.h"

namespace pellumar {

// Makes of what was said what is written: counted, sampled, within its session, with the automatic
// events that this brings about where the consent allows them. All of a call or nothing of it is
// kept, so that it can be tried again. One thread at a time.
class Recorder {
  public:
    // Half an hour in which the application was neither in front nor said anything, or the machine
    // slept, ends a session.
    static constexpr qint64 kAbsence = 30LL * 60 * 1000;

    // All must outlive this.
    Recorder(const AnalyticsEnvironment& environment, const Rules& rules)
        : environment_(environment), rules_(rules) {}

    // Writes to `store` from here on, in the middle of a process perhaps. Not `isFirst`: it follows
    // one that was erased or damaged.
    void use(AnalyticsStore& store, bool isFirst);

    // Under a consent that allows automatic events, those of a start and the last process' crash
    // come first, once.
    [[nodiscard]] DatabaseOutcome record(const Intake::Work& work);
    // Crashes may be caught: what was known of the last is told.
    [[nodiscard]] bool isStartTold() const { return isStartTold_; }

  private:
    // When this process last saw something, and whether the application is in front since.
    struct Seen {
        std::optional<Moment> last;
        bool inFront = false;
    };

    void tellStart(const std::optional<CrashReport>& crash);
    void follow(QString Memory::*kept, const QString& version, const QString& event);
    // Forgets what is too old and what may not be kept any more.
    // Once a day, at every start and under every other consent.
    void tidy();
    void take(const Event& event, const Moment& moment);
    void take(const ActivityChange& change, const Moment& moment);
    [[nodiscard]] bool isAbsence(const Moment& now) const;
    // Something happened, in the session that goes on.
    void see(const Moment& moment);
    // The same, and begins another session after an absence.
    void touch(const Moment& moment);
    void tellEngagement();
    void renewIdentifier(const Moment& now);
    // Made by the engine, if it may.
    void tell(const QString& name, const Event::Parameters& parameters, qint64 wall);
    // Counts the event and keeps it, unless the configuration is against it.
    void add(const Event& event, qint64 wall);

    const AnalyticsEnvironment& environment_;
    const Rules& rules_;
    AnalyticsStore* store_ = nullptr;
    bool isFirst_ = true;
    // Of this store: when it was last tidied, and whether automatic events were allowed then.
    std::optional<qint64> lastUpkeep_;
    bool measured_ = false;
    bool isStartTold_ = false;
    Seen seen_;
    // What is being made.
    Change change_;
};

}  // namespace pellumar
