#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "analytics/AnalyticsStore.h"
#include "analytics/Consent.h"
#include "analytics/Intake.h"
#include "analytics/MeasurementConfig.h"
#include "analytics/Moment.h"
#include "platform/crashes/CrashReport.h"

namespace pellumar {

// What is measured, and on what.
struct ProductVersions {
    QString serviceName;
    QString serviceVersion;
    // "linux".
    QString osType;
    // "Debian GNU/Linux 12", as a person would say it.
    QString osVersion;
};

// What the piece of work at hand goes by.
struct Rules {
    Consent consent;
    MeasurementConfig config;
};

// Makes of what was said what is written: counted, sampled, within its session, with the automatic
// events that this brings about where the consent allows them. All of a call or nothing of it is
// kept, so that it can be tried again. One thread at a time.
class Recorder {
  public:
    // What comes before the items of a piece of work.
    struct Due {
        // Under a consent that allows automatic events: those of a start, and the last process'
        // crash. Once.
        bool start = false;
        std::optional<CrashReport> crash;
        // Forgets what is too old, by a clock that can be believed, and what may not be kept any
        // more. Once a day, at every start and under every other consent.
        bool upkeep = false;
    };

    // Half an hour in which the application was neither in front nor said anything, or the machine
    // slept, ends a session.
    static constexpr qint64 kAbsence = 30LL * 60 * 1000;

    // All must outlive this. `now` tells the time.
    Recorder(const std::function<Moment()>& now,
             const ProductVersions& versions,
             const Rules& rules)
        : now_(now), versions_(versions), rules_(rules) {}

    // Writes to `store` from here on, in the middle of a process perhaps, with the application in
    // front or not. Not `isFirst`: it follows one that was erased or damaged.
    void use(AnalyticsStore& store, bool isFirst, bool isInFront);

    [[nodiscard]] DatabaseOutcome record(const Intake::Work& work, const Due& due);

  private:
    // When this process last saw something, and whether the application is in front since.
    struct Seen {
        std::optional<Moment> last;
        bool inFront = false;
    };

    void tellStart(const std::optional<CrashReport>& crash);
    void follow(QString Memory::*kept, const QString& version, const QString& event);
    void tidy();
    void take(const Event& event, const Moment& moment);
    void take(const ActivityChange& change, const Moment& moment);
    [[nodiscard]] bool isAbsence(const Moment& now) const;
    // Something happened, in the session that goes on.
    void see(const Moment& moment);
    // The same, and begins another session after an absence.
    void touch(const Moment& moment);
    void tellEngagement(qint64 wall);
    void renewIdentifier(const Moment& now);
    // Made by the engine, if it may.
    void tell(const QString& name, const std::vector<EventParameter>& parameters, qint64 wall);
    // Counts the event and keeps it, unless the configuration is against it.
    void add(const Event& event, qint64 wall);

    const std::function<Moment()>& now_;
    const ProductVersions& versions_;
    const Rules& rules_;
    AnalyticsStore* store_ = nullptr;
    bool isFirst_ = true;
    Seen seen_;
    // What is being made.
    Change change_;
};

}  // namespace pellumar
