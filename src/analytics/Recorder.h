#pragma once

#include <QString>
#include <optional>
#include <span>
#include <vector>

#include "analytics/AnalyticsClock.h"
#include "analytics/AnalyticsStore.h"
#include "analytics/Consent.h"
#include "analytics/CrashReport.h"
#include "analytics/Intake.h"
#include "analytics/MeasurementConfig.h"
#include "analytics/SessionTracker.h"

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

// Makes of what was said what is written: counted, sampled, within its session, with the automatic
// events that this brings about where the consent allows them. All of a call or nothing of it is
// kept, so that it can be tried again. One thread at a time.
class Recorder {
  public:
    struct Rules {
        const Consent& consent;
        const MeasurementConfig& config;
    };

    // Both must outlive this. Not `isFirst`: the store follows one that was erased or damaged.
    Recorder(AnalyticsStore& store,
             const AnalyticsClock& clock,
             ProductVersions versions,
             bool isFirst);

    // The application has been in front before the store was opened again.
    void resume();

    // Under a consent that allows automatic events: those of a start, the last process' crash and
    // what it has left untold. To be called once.
    [[nodiscard]] DatabaseOutcome start(const std::optional<CrashReport>& crash,
                                        const Rules& rules);
    [[nodiscard]] DatabaseOutcome record(const Intake::Work& work, const Rules& rules);
    // Tells how long the user has looked, at the end.
    [[nodiscard]] DatabaseOutcome finish(const Rules& rules);

    // Forgets what is too old, by a clock that can be believed, and what may not be kept any more.
    // To be called once a day, at every start and under every other consent.
    [[nodiscard]] DatabaseOutcome tidy(const Rules& rules);

  private:
    // What to go back to if the change cannot be written.
    [[nodiscard]] SessionTracker begin();
    [[nodiscard]] DatabaseOutcome commit(const SessionTracker& before);
    void take(const Event& event, const Moment& moment, const Rules& rules);
    void take(const ActivityChange& change, const Moment& moment, const Rules& rules);
    // Goes on with the session, or begins one.
    void touch(const Moment& moment, const Rules& rules);
    void tellEngagement(qint64 wall, const Rules& rules);
    void follow(QString Memory::*kept,
                const QString& version,
                const QString& event,
                const Moment& now,
                const Rules& rules);
    void renewIdentifier(const Moment& now, const Rules& rules);
    // Made by the engine, if it may.
    void tell(const QString& name,
              const std::vector<EventParameter>& parameters,
              qint64 wall,
              const Rules& rules);
    // Counts the event and keeps it, unless the configuration is against it.
    void add(const Event& event, qint64 wall, const Rules& rules);

    AnalyticsStore& store_;
    const AnalyticsClock& clock_;
    const ProductVersions versions_;
    const bool isFirst_;
    SessionTracker tracker_;
    // What is being made.
    Change change_;
};

}  // namespace pellumar
