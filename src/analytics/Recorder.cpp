#include "analytics/Recorder.h"

#include <QRandomGenerator>
#include <QUuid>
#include <algorithm>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "analytics/MeasurementFolder.h"
#include "analytics/OtlpEncoder.h"

namespace pellumar {
namespace {

const QString kFirstOpen = QStringLiteral("pz_first_open");
const QString kSessionStart = QStringLiteral("pz_session_start");
const QString kEngagement = QStringLiteral("pz_engagement");
const QString kAppUpdate = QStringLiteral("pz_app_update");
const QString kSystemUpdate = QStringLiteral("pz_system_update");
const QString kCrash = QStringLiteral("pz_crash");

constexpr qint64 kDay = 24LL * 60 * 60 * 1000;

QString random() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

}  // namespace

void Recorder::use(AnalyticsStore& store, bool isFirst) {
    store_ = &store;
    isFirst_ = isFirst;
    lastUpkeep_.reset();
    isStartTold_ = false;
    if (seen_.last) {
        seen_.last = environment_.now();
    }
}

DatabaseOutcome Recorder::record(const Intake::Work& work) {
    const qint64 now = environment_.now().elapsed;
    const bool mayMeasure = rules_.consent.mayMeasure();
    const bool isStart = mayMeasure && !isStartTold_;
    const bool isUpkeep = !lastUpkeep_ || measured_ != mayMeasure || now - *lastUpkeep_ >= kDay;
    if (work.items.empty() && work.dropped + work.invalid == 0 && !isStart && !isUpkeep) {
        seen_.inFront = work.isInFront;
        return DatabaseOutcome::kDone;
    }
    const Seen before = seen_;
    change_ = Change{.memory = store_->memory()};
    Memory& memory = change_.memory;
    memory.lose(loss::kQueueFull, work.dropped);
    memory.lose(loss::kInvalid, work.invalid);
    const std::filesystem::path marker = MeasurementFolder::crashIn(environment_.folder);
    std::optional<CrashReport> crash;
    if (isStart) {
        crash = CrashReport::read(marker);
        tellStart(crash);
    }
    if (isUpkeep) {
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
    const DatabaseOutcome outcome = store_->write(change_);
    if (outcome != DatabaseOutcome::kDone) {
        seen_ = before;
        return outcome;
    }
    // Not all of it was among the items, if the consent was against it.
    seen_.inFront = work.isInFront;
    isStartTold_ = isStartTold_ || isStart;
    lastUpkeep_ = isUpkeep ? now : lastUpkeep_;
    measured_ = mayMeasure;
    // It is told, or is not to be.
    if (crash || change_.forgetsAutomatic) {
        std::error_code ignored;
        std::filesystem::remove(marker, ignored);
    }
    return outcome;
}

void Recorder::tellStart(const std::optional<CrashReport>& crash) {
    const Moment now = environment_.now();
    Memory& memory = change_.memory;
    renewIdentifier(now);
    // These two belong to the session that the last process was in. One that was killed before it
    // could remove the marker has told the crash already; one from before the answer may have come
    // to be while nothing was to be known.
    const qint64 answered = rules_.consent.answer(ConsentKind::kAnalyticsStorage).time.value_or(0);
    if (crash && memory.toldCrash != crash->fingerprint && crash->time >= answered) {
        memory.toldCrash = crash->fingerprint;
        tell(kCrash,
             {{QStringLiteral("pz_signal"), crash->signal},
              {QStringLiteral("pz_crashed_version"), crash->version},
              {QStringLiteral("pz_stack"), crash->stack}},
             crash->time > 0 && crash->time <= now.wall ? crash->time : now.wall);
    }
    tellEngagement();
    if (memory.applicationVersion.isEmpty() && isFirst_) {
        touch(now);
        tell(kFirstOpen, {}, now.wall);
    }
    follow(&Memory::applicationVersion, environment_.versions.serviceVersion, kAppUpdate);
    follow(&Memory::systemVersion, environment_.versions.osVersion, kSystemUpdate);
}

void Recorder::follow(QString Memory::*kept, const QString& version, const QString& event) {
    const QString before = std::exchange(change_.memory.*kept, version);
    if (!before.isEmpty() && before != version) {
        const Moment now = environment_.now();
        touch(now);
        tell(event, {{QStringLiteral("pz_previous_version"), before}}, now.wall);
    }
}

void Recorder::tidy() {
    const qint64 now = environment_.now().wall;
    Memory& memory = change_.memory;
    change_.tooOld = now - rules_.config.retentionDays * kDay;
    change_.today = localDay(now);
    change_.forgetsAutomatic = !rules_.consent.mayMeasure() && !rules_.consent.isPaused;
    if (change_.forgetsAutomatic) {
        memory.engagement = 0;
        memory.audiences.clear();
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
        tellEngagement();
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
    // Not what was before the answer.
    if (seen_.inFront && seen_.last && measured_ && rules_.consent.mayMeasure()) {
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
    tellEngagement();
    see(moment);
    // What was looked at before it is of no session.
    memory.engagement = 0;
    memory.session = random();
    ++memory.sessionNumber;
    tell(kSessionStart, {{QStringLiteral("pz_session_number"), memory.sessionNumber}}, moment.wall);
}

void Recorder::tellEngagement() {
    Memory& memory = change_.memory;
    if (const qint64 engagement = std::exchange(memory.engagement, 0); engagement > 0) {
        tell(kEngagement, {{QStringLiteral("pz_engagement_ms"), engagement}}, memory.lastSeen);
    }
}

void Recorder::renewIdentifier(const Moment& now) {
    Memory& memory = change_.memory;
    // A clock that was set back begins anew.
    memory.installedAt = std::min(memory.installedAt, now.wall);
    const bool isOld = now.wall - memory.installedAt >= rules_.config.identifierDays * kDay;
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

void Recorder::tell(const QString& name, const Event::Parameters& parameters, qint64 wall) {
    if (rules_.consent.mayMeasure()) {
        add({.name = name, .parameters = parameters}, wall);
    }
}

void Recorder::add(const Event& event, qint64 wall) {
    if (rules_.config.blockedEvents.contains(event.name)) {
        return;
    }
    ++change_.counts[{event.name, localDay(wall)}];
    if (QRandomGenerator::global()->bounded(MeasurementConfig::kAll) >=
        rules_.config.samplingOf(event.name)) {
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
