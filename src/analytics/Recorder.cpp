#include "analytics/Recorder.h"

#include <QRandomGenerator>
#include <QUuid>
#include <algorithm>
#include <cstdlib>
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

void Recorder::use(AnalyticsStore& store, bool isFirst, bool isInFront) {
    store_ = &store;
    isFirst_ = isFirst;
    if (seen_.last) {
        seen_ = {.last = now_(), .inFront = isInFront};
    }
}

DatabaseOutcome Recorder::record(const Intake::Work& work, const Due& due) {
    const Seen before = seen_;
    change_ = Change{.memory = store_->memory()};
    Memory& memory = change_.memory;
    memory.lose(loss::kQueueFull, work.dropped);
    memory.lose(loss::kInvalid, work.invalid);
    if (due.start) {
        tellStart(due.crash);
    }
    if (due.upkeep) {
        tidy();
    }
    for (const Accepted& item : work.items) {
        if (const auto* const event = std::get_if<Event>(&item.what)) {
            take(*event, item.moment);
        } else if (const auto* const property = std::get_if<UserProperty>(&item.what)) {
            memory.set(*property);
        } else if (const auto* const change = std::get_if<ActivityChange>(&item.what)) {
            take(*change, item.moment);
        }
    }
    memory.isOpened = memory.isOpened || !isFirst_;
    const DatabaseOutcome outcome = store_->write(change_);
    if (outcome != DatabaseOutcome::kDone) {
        seen_ = before;
    }
    return outcome;
}

void Recorder::tellStart(const std::optional<CrashReport>& crash) {
    const Moment now = now_();
    Memory& memory = change_.memory;
    renewIdentifier(now);
    // These two belong to the session that the last process was in. One that was killed before it
    // could remove the marker has told the crash already; one from before the answer may have come
    // to be while nothing was to be known.
    const qint64 answered = rules_.consent.answer(ConsentKind::kAnalyticsStorage).time.value_or(0);
    if (crash && memory.toldCrash != crash->fingerprint && crash->time >= answered) {
        memory.toldCrash = crash->fingerprint;
        tell(kCrash,
             {{.name = QStringLiteral("pz_signal"), .value = crash->signal},
              {.name = QStringLiteral("pz_crashed_version"), .value = crash->version},
              {.name = QStringLiteral("pz_stack"), .value = crash->stack}},
             crash->time > 0 && crash->time <= now.wall ? crash->time : now.wall);
    }
    tellEngagement(memory.lastSeen);
    if (!std::exchange(memory.isOpened, true) && isFirst_) {
        touch(now);
        tell(kFirstOpen, {}, now.wall);
    }
    follow(&Memory::applicationVersion, versions_.serviceVersion, kAppUpdate);
    follow(&Memory::systemVersion, versions_.osVersion, kSystemUpdate);
}

void Recorder::follow(QString Memory::*kept, const QString& version, const QString& event) {
    const QString before = std::exchange(change_.memory.*kept, version);
    if (!before.isEmpty() && before != version) {
        const Moment now = now_();
        touch(now);
        tell(event, {{.name = QStringLiteral("pz_previous_version"), .value = before}}, now.wall);
    }
}

void Recorder::tidy() {
    const qint64 now = now_().wall;
    Memory& memory = change_.memory;
    const bool isSteady =
        memory.clockSeen > 0 && now >= memory.clockSeen && now - memory.clockSeen <= kLongestGap;
    memory.clockSeen = now;
    memory.clockSteadySince = isSteady ? memory.clockSteadySince : now;
    if (now - memory.clockSteadySince >= kProbation) {
        change_.tooOld = now - milliseconds(rules_.config.retention);
        change_.today = localDay(now);
    }
    change_.forgetsAutomatic = !rules_.consent.mayMeasure() && !rules_.consent.isPaused;
    if (change_.forgetsAutomatic) {
        memory.engagement = 0;
        memory.advertising.clear();
        memory.properties.removeIf(
            [](const auto& each) { return each.key().startsWith(kReservedPrefix); });
    }
}

void Recorder::take(const Event& event, const Moment& moment) {
    renewIdentifier(moment);
    touch(moment);
    add(event, moment.wall);
}

void Recorder::take(const ActivityChange& change, const Moment& moment) {
    if (rules_.consent.mayMeasure()) {
        touch(moment);
    } else if (isAbsence(moment)) {
        // The next event begins one.
        change_.memory.session.clear();
    }
    see(moment);
    seen_.inFront = change.inFront;
    if (!change.inFront) {
        tellEngagement(moment.wall);
    }
}

bool Recorder::isAbsence(const Moment& now) const {
    const Memory& memory = change_.memory;
    if (memory.session.isEmpty()) {
        return true;
    }
    if (!seen_.last) {
        // Between two processes there is only the wall clock. One that has been set back by more
        // than half an hour says nothing of the absence.
        return std::abs(now.wall - memory.lastSeen) >= kAbsence;
    }
    // Nobody looks at what is in front of a machine that sleeps.
    const qint64 looking = seen_.inFront ? now.awake - seen_.last->awake : 0;
    return now.elapsed - seen_.last->elapsed - looking >= kAbsence;
}

void Recorder::see(const Moment& moment) {
    if (seen_.inFront && seen_.last) {
        change_.memory.engagement += std::max<qint64>(0, moment.awake - seen_.last->awake);
    }
    // Callers on several threads may be told of out of order.
    if (!seen_.last || moment.elapsed > seen_.last->elapsed) {
        seen_.last = moment;
    }
    change_.memory.lastSeen = moment.wall;
}

void Recorder::touch(const Moment& moment) {
    Memory& memory = change_.memory;
    if (!isAbsence(moment)) {
        see(moment);
        return;
    }
    tellEngagement(memory.lastSeen);
    see(moment);
    // What was looked at before it is of no session.
    memory.engagement = 0;
    memory.session = random();
    ++memory.sessionNumber;
    tell(kSessionStart,
         {{.name = QStringLiteral("pz_session_number"), .value = memory.sessionNumber}},
         moment.wall);
}

void Recorder::tellEngagement(qint64 wall) {
    if (const qint64 engagement = std::exchange(change_.memory.engagement, 0); engagement > 0) {
        tell(
            kEngagement, {{.name = QStringLiteral("pz_engagement_ms"), .value = engagement}}, wall);
    }
}

void Recorder::renewIdentifier(const Moment& now) {
    Memory& memory = change_.memory;
    // A clock that was set back begins anew.
    memory.installedAt = std::min(memory.installedAt, now.wall);
    const bool isOld = now.wall - memory.installedAt >= milliseconds(rules_.config.identifierLife);
    // What is still to leave under the old one would connect the two.
    if (memory.installation.isEmpty() || !isOld || !change_.events.empty() ||
        store_->waiting(1) > 0) {
        return;
    }
    memory.installation.clear();
    memory.session.clear();
    memory.sessionNumber = 0;
    // What was lost connects them as well.
    memory.losses.clear();
}

void Recorder::tell(const QString& name,
                    const std::vector<EventParameter>& parameters,
                    qint64 wall) {
    if (rules_.consent.mayMeasure()) {
        add({.name = name, .parameters = parameters}, wall);
    }
}

void Recorder::add(const Event& event, qint64 wall) {
    if (rules_.config.blockedEvents.contains(event.name)) {
        return;
    }
    ++change_.counts[{event.name, localDay(wall)}];
    if (!isChosen(event.name, rules_.config)) {
        change_.memory.lose(loss::kSampledOut, 1);
        return;
    }
    Memory& memory = change_.memory;
    if (memory.installation.isEmpty()) {
        memory.installation = random();
        memory.installedAt = wall;
    }
    change_.events.push_back({.name = event.name,
                              .time = wall,
                              .session = memory.session,
                              .parameters = otlp::encode(event.parameters)});
}

}  // namespace pellumar
