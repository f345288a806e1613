#include "analytics/Recorder.h"

#include <QRandomGenerator>
#include <cstdlib>
#include <utility>

#include "analytics/AutomaticEvents.h"
#include "analytics/ClockWitness.h"
#include "analytics/EventNaming.h"
#include "analytics/EventValidator.h"

namespace pellumar {
namespace {

// In the state: the fingerprint of the last crash that was told.
const QString kCrashTold = QStringLiteral("crash_told");

bool isChosen(const QString& name, const MeasurementConfig& config) {
    const int permille = config.samplingOf(name);
    return permille >= MeasurementConfig::kAll ||
           QRandomGenerator::global()->bounded(MeasurementConfig::kAll) < permille;
}

}  // namespace

Recorder::Recorder(AnalyticsStore& store, const AnalyticsClock& clock, const Audiences& audiences)
    : store_(store), clock_(clock), audiences_(audiences), tracker_(store.sessions().last()) {}

Recorder::Result Recorder::start(const Start& start,
                                 const Consent& consent,
                                 const MeasurementConfig& config) {
    const SessionTracker before = tracker_;
    const Rules rules{.consent = consent, .config = config};
    const Moment now = clock_.now();
    store_.database().begin();
    // These two belong to the session that the last process was in.
    if (start.crash) {
        takeCrash(*start.crash, now, rules);
    }
    tellEngagement(tracker_.session().lastSeen, rules);
    for (Event& event : AutomaticEvents::atStart(store_.state(), start.versions)) {
        touch(now, rules);
        add(std::move(event), now.wall, rules);
    }
    if (start.inFront) {
        take(ActivityChange{.active = true}, now, rules);
    }
    return commit(before, rules);
}

Recorder::Result Recorder::record(std::span<const QueueItem> items,
                                  qint64 dropped,
                                  const Consent& consent,
                                  const MeasurementConfig& config) {
    const SessionTracker before = tracker_;
    const Rules rules{.consent = consent, .config = config};
    store_.database().begin();
    store_.losses().add(loss::kQueueFull, dropped);
    for (const QueueItem& item : items) {
        if (const auto* const event = std::get_if<LoggedEvent>(&item.what)) {
            take(*event, item.moment, rules);
        } else if (const auto* const property = std::get_if<UserPropertyChange>(&item.what)) {
            take(*property, item.moment);
        } else if (const auto* const activity = std::get_if<ActivityChange>(&item.what)) {
            take(*activity, item.moment, rules);
        }
    }
    return commit(before, rules);
}

Recorder::Result Recorder::commit(const SessionTracker& before, const Rules& rules) {
    const qint64 now = clock_.now().wall;
    std::vector<Audiences::Change> changes =
        audiences_.evaluate(store_, rules.consent, now, clock_.dayOf(now));
    keepEngagement(before.session());
    store_.keepBound();
    const DatabaseOutcome outcome = store_.database().commit();
    if (outcome != DatabaseOutcome::kDone) {
        tracker_ = before;
        changes.clear();
    }
    return {.outcome = outcome, .audiences = std::move(changes)};
}

void Recorder::take(const LoggedEvent& event, const Moment& moment, const Rules& rules) {
    validation::CheckedEvent checked = validation::checkEvent(event.name, event.parameters);
    if (checked.error != MeasurementError::kNone) {
        store_.losses().add(loss::kInvalid, 1);
    }
    if (checked.event) {
        touch(moment, rules);
        add(std::move(*checked.event), moment.wall, rules);
    }
}

void Recorder::take(const UserPropertyChange& change, const Moment& moment) {
    const validation::CheckedProperty checked =
        validation::checkUserProperty(change.name, change.value);
    const bool kept =
        checked.value && store_.userProperties().set(
                             {.name = change.name, .value = *checked.value, .time = moment.wall});
    if (!kept || checked.error != MeasurementError::kNone) {
        store_.losses().add(loss::kInvalid, 1);
    }
}

void Recorder::take(const ActivityChange& change, const Moment& moment, const Rules& rules) {
    touch(moment, rules);
    if (change.active) {
        tracker_.activate(moment);
    } else {
        tracker_.deactivate(moment);
        tellEngagement(moment.wall, rules);
    }
}

void Recorder::touch(const Moment& moment, const Rules& rules) {
    if (!tracker_.isAbsence(moment)) {
        tracker_.touch(moment);
        return;
    }
    tellEngagement(tracker_.session().lastSeen, rules);
    const Session last = store_.sessions().last();
    const bool isAnothers = last.number > tracker_.session().number;
    if (isAnothers && std::abs(moment.wall - last.lastSeen) < SessionTracker::kAbsence) {
        tracker_.join(last);
        tracker_.touch(moment);
        return;
    }
    tracker_.begin(moment, last.number + 1);
    store_.sessions().add(tracker_.session());
    add(AutomaticEvents::sessionStart(tracker_.session().number), moment.wall, rules);
}

void Recorder::keepEngagement(const Session& before) {
    const qint64 engagement = tracker_.takeEngagement();
    if (engagement > 0 || tracker_.session() != before) {
        store_.sessions().extend(tracker_.session(), engagement);
    }
}

void Recorder::takeCrash(const CrashReport& crash, const Moment& now, const Rules& rules) {
    // A process that was killed before it could remove the marker has told it already.
    if (store_.state().text(kCrashTold) == crash.fingerprint) {
        return;
    }
    store_.state().set(kCrashTold, crash.fingerprint);
    const bool isTimeKnown = crash.time > 0 && crash.time <= now.wall;
    add(AutomaticEvents::crash(crash), isTimeKnown ? crash.time : now.wall, rules);
}

void Recorder::tellEngagement(qint64 wall, const Rules& rules) {
    keepEngagement(tracker_.session());
    const qint64 engagement = store_.sessions().takeUnreported(tracker_.session().number);
    if (engagement > 0) {
        add(AutomaticEvents::engagement(engagement), wall, rules);
    }
}

void Recorder::add(Event event, qint64 wall, const Rules& rules) {
    if (rules.config.blockedEvents.contains(event.name)) {
        return;
    }
    if (!store_.counts().add(event.name, wall, clock_.dayOf(wall))) {
        store_.losses().add(loss::kInvalid, 1);
        return;
    }
    if (!isChosen(event.name, rules.config)) {
        store_.losses().add(loss::kSampledOut, 1);
        return;
    }
    store_.events().add({.uid = InstallationIdentifier::random(),
                         .time = wall,
                         .sessionNumber = tracker_.session().number,
                         .sessionUid = {},
                         .consent = rules.consent,
                         .event = std::move(event)});
}

void Recorder::forgetOld(const MeasurementConfig& config) {
    const qint64 now = clock_.now().wall;
    const std::chrono::milliseconds retention = config.retention;
    store_.database().begin();
    if (ClockWitness(store_.state()).confirms(now)) {
        store_.forget(now - retention.count(), clock_.dayOf(now));
    }
    // Tomorrow is another day.
    static_cast<void>(store_.database().commit());
}

}  // namespace pellumar
