#pragma once

#include <QString>
#include <optional>
#include <span>
#include <vector>

#include "analytics/AnalyticsClock.h"
#include "analytics/AnalyticsStore.h"
#include "analytics/Audiences.h"
#include "analytics/ConsentState.h"
#include "analytics/CrashReport.h"
#include "analytics/Event.h"
#include "analytics/EventQueue.h"
#include "analytics/MeasurementConfig.h"
#include "analytics/ProductVersions.h"
#include "analytics/SessionTracker.h"

namespace pellumar {

// Writes what the application says into a store: checked, counted, sampled, within its session,
// with the automatic events that this brings about. All of a call or nothing of it is kept, so that
// it can be tried again. One thread at a time.
class Recorder {
  public:
    // What came of it; without success there are no changes.
    struct Result {
        DatabaseOutcome outcome = DatabaseOutcome::kDone;
        std::vector<Audiences::Change> audiences;
    };

    // All must outlive this.
    Recorder(AnalyticsStore& store, const AnalyticsClock& clock, const Audiences& audiences);

    // A process that begins to record.
    struct Start {
        const ProductVersions& versions;
        // Of the last one.
        std::optional<CrashReport> crash;
        // It is in front already.
        bool inFront = false;
    };

    // Records what the last process has left untold, first open and updates.
    [[nodiscard]] Result start(const Start& start,
                               const Consent& consent,
                               const MeasurementConfig& config);

    // Events, user properties and activity; other items are not for this. `dropped`: how many found
    // no room before.
    [[nodiscard]] Result record(std::span<const QueueItem> items,
                                qint64 dropped,
                                const Consent& consent,
                                const MeasurementConfig& config);

    // Forgets what is too old, by a clock that can be believed. To be called once a day and at
    // every start.
    void forgetOld(const MeasurementConfig& config);

  private:
    // Of the transaction that runs.
    struct Rules {
        const Consent& consent;
        const MeasurementConfig& config;
    };

    [[nodiscard]] Result commit(const SessionTracker& before, const Rules& rules);
    void take(const LoggedEvent& event, const Moment& moment, const Rules& rules);
    void take(const UserPropertyChange& change, const Moment& moment);
    void take(const ActivityChange& change, const Moment& moment, const Rules& rules);
    // Goes on with the session, or begins one.
    void touch(const Moment& moment, const Rules& rules);
    void takeCrash(const CrashReport& crash, const Moment& now, const Rules& rules);
    // Writes down how long the user has looked, and when something was last seen.
    void keepEngagement(const Session& before);
    void tellEngagement(qint64 wall, const Rules& rules);
    // Counts the event and keeps it, unless the configuration is against it.
    void add(Event event, qint64 wall, const Rules& rules);

    AnalyticsStore& store_;
    const AnalyticsClock& clock_;
    const Audiences& audiences_;
    SessionTracker tracker_;
};

}  // namespace pellumar
