#include "analytics/Recorder.h"

#include <QRandomGenerator>
#include <QUuid>
#include <utility>

#include "analytics/OtlpEncoder.h"

namespace pellumar {
namespace {

const QString kFirstOpen = QStringLiteral("pz_first_open");
const QString kSessionStart = QStringLiteral("pz_session_start");
const QString kEngagement = QStringLiteral("pz_engagement");
const QString kAppUpdate = QStringLiteral("pz_app_update");
const QString kSystemUpdate = QStringLiteral("pz_system_update");
const QString kCrash = QStringLiteral("pz_crash");

// The wall clock is believed when it says that time has passed if it has gone on for a day without
// a leap: back, or forward by more than a month. One that was set to another year would have
// everything expire at once.
constexpr qint64 kProbation = 24LL * 60 * 60 * 1000;
constexpr qint64 kLongestGap = 30 * kProbation;

QString random() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

bool isChosen(const QString& name, const MeasurementConfig& config) {
    const int permille = config.samplingOf(name);
    return permille >= MeasurementConfig::kAll ||
           QRandomGenerator::global()->bounded(MeasurementConfig::kAll) < permille;
}

qint64 milliseconds(std::chrono::milliseconds duration) {
    return duration.count();
}

}  // namespace

Recorder::Recorder(AnalyticsStore& store,
                   const AnalyticsClock& clock,
                   ProductVersions versions,
                   bool isFirst)
    : store_(store),
      clock_(clock),
      versions_(std::move(versions)),
      isFirst_(isFirst),
      tracker_(store.memory().session.isEmpty() ? std::nullopt
                                                : std::optional(store.memory().lastSeen)) {}

void Recorder::resume() {
    tracker_.resume(clock_.now());
}

DatabaseOutcome Recorder::start(const std::optional<CrashReport>& crash, const Rules& rules) {
    const SessionTracker before = begin();
    const Moment now = clock_.now();
    Memory& memory = change_.memory;
    renewIdentifier(now, rules);
    // These two belong to the session that the last process was in. One that was killed before it
    // could remove the marker has told the crash already.
    if (crash && memory.toldCrash != crash->fingerprint) {
        memory.toldCrash = crash->fingerprint;
        tell(kCrash,
             {{.name = QStringLiteral("pz_signal"), .value = crash->signal},
              {.name = QStringLiteral("pz_crashed_version"), .value = crash->version},
              {.name = QStringLiteral("pz_stack"), .value = crash->stack}},
             crash->time > 0 && crash->time <= now.wall ? crash->time : now.wall,
             rules);
    }
    tellEngagement(memory.lastSeen, rules);
    if (std::exchange(memory.isOpened, 1) == 0 && isFirst_) {
        touch(now, rules);
        tell(kFirstOpen, {}, now.wall, rules);
    }
    follow(&Memory::applicationVersion, versions_.serviceVersion, kAppUpdate, now, rules);
    follow(&Memory::systemVersion, versions_.osVersion, kSystemUpdate, now, rules);
    return commit(before);
}

void Recorder::follow(QString Memory::*kept,
                      const QString& version,
                      const QString& event,
                      const Moment& now,
                      const Rules& rules) {
    const QString before = std::exchange(change_.memory.*kept, version);
    if (!before.isEmpty() && before != version) {
        touch(now, rules);
        tell(event,
             {{.name = QStringLiteral("pz_previous_version"), .value = before}},
             now.wall,
             rules);
    }
}

DatabaseOutcome Recorder::record(const Intake::Work& work, const Rules& rules) {
    const SessionTracker before = begin();
    change_.losses[loss::kQueueFull] = work.dropped;
    change_.losses[loss::kInvalid] = work.invalid;
    for (const Accepted& item : work.items) {
        if (const auto* const event = std::get_if<Event>(&item.what)) {
            take(*event, item.moment, rules);
        } else if (const auto* const property = std::get_if<UserProperty>(&item.what)) {
            change_.properties.push_back(*property);
        } else {
            take(std::get<ActivityChange>(item.what), item.moment, rules);
        }
    }
    return commit(before);
}

DatabaseOutcome Recorder::finish(const Rules& rules) {
    const SessionTracker before = begin();
    if (tracker_.isInFront() && rules.consent.mayMeasure()) {
        const Moment now = clock_.now();
        take(ActivityChange{.inFront = false}, now, rules);
    }
    return commit(before);
}

SessionTracker Recorder::begin() {
    // Others write there as well.
    change_ = Change{.memory = store_.memory()};
    return tracker_;
}

DatabaseOutcome Recorder::commit(const SessionTracker& before) {
    Memory& memory = change_.memory;
    memory.engagement += tracker_.takeEngagement();
    memory.isOpened = isFirst_ ? memory.isOpened : 1;
    const DatabaseOutcome outcome = store_.write(change_);
    if (outcome != DatabaseOutcome::kDone) {
        tracker_ = before;
    }
    return outcome;
}

void Recorder::take(const Event& event, const Moment& moment, const Rules& rules) {
    renewIdentifier(moment, rules);
    touch(moment, rules);
    add(event, moment.wall, rules);
}

void Recorder::take(const ActivityChange& change, const Moment& moment, const Rules& rules) {
    const bool mayMeasure = rules.consent.mayMeasure();
    const bool isOver = !mayMeasure && tracker_.isAbsence(moment);
    if (mayMeasure) {
        touch(moment, rules);
    }
    tracker_.setInFront(change.inFront, moment);
    if (isOver) {
        // The next event begins one.
        tracker_.end();
    }
    if (!change.inFront) {
        tellEngagement(moment.wall, rules);
    }
}

void Recorder::touch(const Moment& moment, const Rules& rules) {
    Memory& memory = change_.memory;
    const bool begins = tracker_.isAbsence(moment);
    if (begins) {
        tellEngagement(memory.lastSeen, rules);
        // What was looked at before it is of no session.
        tracker_.touch(moment);
        static_cast<void>(tracker_.takeEngagement());
        memory.session = random();
        memory.lastSeen = moment.wall;
        ++memory.sessionNumber;
        tell(kSessionStart,
             {{.name = QStringLiteral("pz_session_number"), .value = memory.sessionNumber}},
             moment.wall,
             rules);
    }
    tracker_.touch(moment);
    memory.lastSeen = moment.wall;
}

void Recorder::tellEngagement(qint64 wall, const Rules& rules) {
    Memory& memory = change_.memory;
    memory.engagement += tracker_.takeEngagement();
    if (const qint64 engagement = std::exchange(memory.engagement, 0); engagement > 0) {
        tell(kEngagement,
             {{.name = QStringLiteral("pz_engagement_ms"), .value = engagement}},
             wall,
             rules);
    }
}

void Recorder::renewIdentifier(const Moment& now, const Rules& rules) {
    Memory& memory = change_.memory;
    // A clock that was set back begins anew.
    memory.installedAt = std::min(memory.installedAt, now.wall);
    const bool isOld = now.wall - memory.installedAt >= milliseconds(rules.config.identifierLife);
    // What is still to leave under the old one would connect the two.
    if (memory.installation.isEmpty() || !isOld || !change_.events.empty() ||
        store_.waiting(1) > 0) {
        return;
    }
    memory.installation.clear();
    memory.session.clear();
    memory.sessionNumber = 0;
    change_.forgetsLosses = true;
    tracker_.end();
}

void Recorder::tell(const QString& name,
                    const std::vector<EventParameter>& parameters,
                    qint64 wall,
                    const Rules& rules) {
    if (rules.consent.mayMeasure()) {
        add({.name = name, .parameters = parameters}, wall, rules);
    }
}

void Recorder::add(const Event& event, qint64 wall, const Rules& rules) {
    if (rules.config.blockedEvents.contains(event.name)) {
        return;
    }
    Change::Happened happened{.name = event.name, .day = clock_.dayOf(wall), .kept = std::nullopt};
    if (isChosen(event.name, rules.config)) {
        Memory& memory = change_.memory;
        if (memory.installation.isEmpty()) {
            memory.installation = random();
            memory.installedAt = wall;
        }
        happened.kept = {.uid = random(),
                         .name = event.name,
                         .time = wall,
                         .session = memory.session,
                         .droppedParameters = event.droppedParameters,
                         .parameters = otlp::encode(event.parameters)};
    } else {
        ++change_.losses[loss::kSampledOut];
    }
    change_.events.push_back(std::move(happened));
}

DatabaseOutcome Recorder::tidy(const Rules& rules) {
    const SessionTracker before = begin();
    const qint64 now = clock_.now().wall;
    Memory& memory = change_.memory;
    const bool isSteady =
        memory.clockSeen > 0 && now >= memory.clockSeen && now - memory.clockSeen <= kLongestGap;
    memory.clockSeen = now;
    memory.clockSteadySince = isSteady ? memory.clockSteadySince : now;
    if (now - memory.clockSteadySince >= kProbation) {
        change_.tooOld = now - milliseconds(rules.config.retention);
        change_.today = clock_.dayOf(now);
    }
    change_.forgetsAutomatic = !rules.consent.mayMeasure() && !rules.consent.isPaused;
    if (change_.forgetsAutomatic) {
        static_cast<void>(tracker_.takeEngagement());
        memory.engagement = 0;
    }
    return commit(before);
}

}  // namespace pellumar
