#include "analytics/AnalyticsWorker.h"

#include <QTimer>
#include <algorithm>
#include <system_error>
#include <utility>

namespace pellumar {
namespace {

// When something that could not be done is tried again, if nothing new is said before.
constexpr qint64 kRetryMilliseconds = 5000;
constexpr qint64 kUpkeepMilliseconds = 24LL * 60 * 60 * 1000;
constexpr qint64 kConfigMilliseconds = 60'000;

// Or until so much time has passed.
void waitForEvent(QEventLoop& loop, qint64 milliseconds) {
    QTimer timer;
    timer.setSingleShot(true);
    timer.start(std::chrono::milliseconds(milliseconds));
    loop.processEvents(QEventLoop::WaitForMoreEvents);
}

bool isThere(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::symlink_status(file, error).type() !=
           std::filesystem::file_type::not_found;
}

}  // namespace

AnalyticsWorker::AnalyticsWorker(const AnalyticsEnvironment& environment,
                                 Intake& intake,
                                 CrashMarker* marker)
    : environment_(environment),
      intake_(intake),
      marker_(marker),
      folder_(environment.folder),
      consent_(environment.consent) {}

void AnalyticsWorker::run(const std::stop_token& stop) {
    QEventLoop loop;
    intake_.setWaker([&loop] { loop.wakeUp(); });
    // Runs from the moment that somebody waits for the end.
    QDeadlineTimer deadline(QDeadlineTimer::Forever);
    {
        const std::stop_callback wake(stop, [&] {
            deadline.setRemainingTime(kLongestFarewell);
            loop.wakeUp();
        });
        if (environment_.transport) {
            transport_ = environment_.transport();
        }
        // A start is not a time to send either.
        lastActivity_ = environment_.clock->now().elapsed;
        while (!stop.stop_requested()) {
            const bool isMore = work();
            if (!stop.stop_requested() && maySend()) {
                // For want of room nothing is thrown away here: what has left makes some.
                recover(uploader_->poll(situation()));
                isStuck_ = isStuck_ || !store_;
            }
            if (isMore) {
                loop.processEvents();
            } else {
                sleep(loop);
            }
        }
    }
    intake_.close();
    sayFarewell(loop, deadline);
    if (marker_ != nullptr) {
        marker_->arm(false);
    }
    closeStore();
    transport_.reset();
}

bool AnalyticsWorker::work() {
    readConfig();
    learnConsent();
    Intake::Work work = intake_.take();
    if (!work.items.empty()) {
        lastActivity_ = environment_.clock->now().elapsed;
    }
    Intake::Outcome outcome;
    bool isRecorded = false;
    if (work.consent) {
        consent_ = *work.consent;
        const bool wasOwed = consent_.isErasureOwed;
        outcome.isObeyed = obey(work);
        if (wasOwed && !consent_.isErasureOwed) {
            // What was said since then has not been taken yet.
            intake_.putBack(std::move(work));
            return true;
        }
        isRecorded = consent_.allowsStorage() && !consent_.isErasureOwed && record(work);
        outcome.isStored = isRecorded && work.isComplete;
    }
    const bool isLeft = !isRecorded && consent_.allowsStorage();
    isStuck_ = !outcome.isObeyed || isLeft;
    if (marker_ != nullptr) {
        marker_->arm(isStartTold_ && consent_.mayMeasure());
    }
    const int ticket = work.ticket;
    const bool isNew = work.isNew;
    if (isLeft) {
        intake_.putBack(std::move(work));
    }
    intake_.done(ticket, outcome);
    return isNew;
}

void AnalyticsWorker::learnConsent() {
    if (saved_ || !folder_.hold()) {
        return;
    }
    const std::optional<QByteArray> kept = folder_.readConsent();
    if (!kept) {
        return;
    }
    saved_.emplace(environment_.consent);
    if (!kept->isEmpty()) {
        saved_->read(*kept);
    }
    intake_.learn(*saved_);
}

bool AnalyticsWorker::obey(const Intake::Work& work) {
    const auto save = [this] {
        if (saved_ != consent_ && folder_.writeConsent(consent_.toJson())) {
            saved_ = consent_;
        }
        return saved_ == consent_;
    };
    // First, so that it is done by the next start if this process ends on the way.
    bool isSaved = save();
    if (consent_.isErasureOwed && erase()) {
        consent_.isErasureOwed = false;
        intake_.erased(work.erasures);
        // On a full disk there is room for it now.
        isSaved = save();
    }
    return isSaved && !consent_.isErasureOwed;
}

bool AnalyticsWorker::erase() {
    bool isWiped = store_ && store_->wipe();
    closeStore();
    isReplaced_ = true;
    if (folder_.clear()) {
        return true;
    }
    // Where one way is barred the other may be open.
    if (!isWiped) {
        const AnalyticsStore::Opened opened = AnalyticsStore::open(environment_.folder);
        isWiped = opened.store && opened.store->wipe();
    }
    return isWiped && !isThere(MeasurementFolder::crashIn(environment_.folder));
}

bool AnalyticsWorker::record(Intake::Work& work) {
    constexpr int kMostTries = 2;
    for (int i = 0; i < kMostTries; ++i) {
        if (!openStore(work)) {
            break;
        }
        if (!store_) {
            return true;
        }
        DatabaseOutcome outcome = upkeep();
        if (outcome == DatabaseOutcome::kDone &&
            (!work.items.empty() || work.dropped > 0 || work.invalid > 0)) {
            outcome = recorder_->record(work, rules());
        }
        if (outcome == DatabaseOutcome::kDone) {
            work.items.clear();
            work.dropped = 0;
            work.invalid = 0;
            followAudiences();
            return true;
        }
        recover(outcome);
    }
    return false;
}

DatabaseOutcome AnalyticsWorker::upkeep() {
    const qint64 now = environment_.clock->now().elapsed;
    const bool isOther = measured_ != consent_.mayMeasure();
    if (consent_.mayMeasure() && !isStartTold_) {
        if (const DatabaseOutcome told = tellStart(); told != DatabaseOutcome::kDone) {
            return told;
        }
        isStartTold_ = true;
    }
    if (lastUpkeep_ && !isOther && now - *lastUpkeep_ < kUpkeepMilliseconds) {
        return DatabaseOutcome::kDone;
    }
    const DatabaseOutcome outcome = recorder_->tidy(rules());
    if (outcome == DatabaseOutcome::kDone) {
        lastUpkeep_ = now;
        measured_ = consent_.mayMeasure();
        if (!measured_ && !consent_.isPaused) {
            std::error_code ignored;
            std::filesystem::remove(MeasurementFolder::crashIn(environment_.folder), ignored);
        }
    }
    return outcome;
}

DatabaseOutcome AnalyticsWorker::tellStart() {
    const std::filesystem::path marker = MeasurementFolder::crashIn(environment_.folder);
    std::optional<CrashReport> crash = CrashReport::read(marker);
    const bool isRead = crash.has_value();
    const std::optional<qint64> answered = consent_.answer(ConsentKind::kAnalyticsStorage).time;
    if (crash && answered && crash->time < *answered) {
        // It may have come to be while nothing was to be known.
        crash.reset();
    }
    const DatabaseOutcome outcome = recorder_->start(crash, rules());
    if (outcome == DatabaseOutcome::kDone && isRead) {
        std::error_code ignored;
        std::filesystem::remove(marker, ignored);
    }
    return outcome;
}

void AnalyticsWorker::followAudiences() {
    const qint64 today = environment_.clock->dayOf(environment_.clock->now().wall);
    for (const AudienceChange& change :
         pellumar::followAudiences(environment_.audiences, *store_, consent_, today)) {
        if (environment_.audienceChanged) {
            environment_.audienceChanged(change.audience, change.member);
        }
    }
}

void AnalyticsWorker::recover(DatabaseOutcome outcome) {
    if (outcome == DatabaseOutcome::kDamaged) {
        closeStore();
        isReplaced_ = true;
        static_cast<void>(folder_.clear());
    } else if (outcome == DatabaseOutcome::kUnavailable) {
        closeStore();
    }
}

bool AnalyticsWorker::openStore(const Intake::Work& work) {
    // Nothing is made before there is something to keep.
    const bool isNeeded = !work.items.empty() || consent_.mayMeasure() ||
                          isThere(MeasurementFolder::storeIn(environment_.folder));
    if (store_ || !isNeeded) {
        return true;
    }
    AnalyticsStore::Opened opened =
        AnalyticsStore::open(environment_.folder, environment_.mostBytes);
    if (opened.isDamaged) {
        recover(DatabaseOutcome::kDamaged);
        opened = AnalyticsStore::open(environment_.folder, environment_.mostBytes);
    }
    if (!opened.store) {
        return false;
    }
    store_ = std::move(opened.store);
    recorder_ = std::make_unique<Recorder>(
        *store_, *environment_.clock, environment_.versions, !isReplaced_);
    if (std::exchange(wasOpen_, true) && work.isInFront) {
        recorder_->resume();
    }
    if (transport_) {
        uploader_ = std::make_unique<Uploader>(*store_, *transport_, environment_.versions);
    }
    return true;
}

void AnalyticsWorker::closeStore() {
    uploader_.reset();
    recorder_.reset();
    store_.reset();
    lastUpkeep_.reset();
    measured_ = false;
    isStartTold_ = false;
}

bool AnalyticsWorker::maySend() {
    const std::optional<Consent> now = intake_.consent();
    return uploader_ && now && now->mayKeep() && !now->isErasureOwed;
}

void AnalyticsWorker::sleep(QEventLoop& loop) {
    qint64 wait = isStuck_ ? kRetryMilliseconds : kUpkeepMilliseconds;
    if (maySend()) {
        wait = std::min(wait, uploader_->nextPoll(situation()).value_or(wait));
    }
    waitForEvent(loop, wait);
}

void AnalyticsWorker::sayFarewell(QEventLoop& loop, const QDeadlineTimer& deadline) {
    if (store_) {
        store_->hurry();
    }
    // What had to be erased first takes another turn.
    constexpr int kMostTurns = 3;
    for (int i = 0; i < kMostTurns && work(); ++i) {
    }
    if (recorder_) {
        // Unwritten, it is told by the next start.
        static_cast<void>(recorder_->finish(rules()));
    }
    const auto hurry = [this] {
        if (maySend()) {
            uploader_->hurry(situation());
        }
    };
    hurry();
    while (uploader_ && uploader_->isUnderway() && !deadline.hasExpired()) {
        waitForEvent(loop, deadline.remainingTime());
        hurry();
    }
}

Uploader::Situation AnalyticsWorker::situation() const {
    return {.now = environment_.clock->now(),
            .lastActivity = lastActivity_,
            .idle = environment_.idle.count(),
            .config = config_,
            .consent = consent_};
}

void AnalyticsWorker::readConfig() {
    const qint64 now = environment_.clock->now().elapsed;
    if (!configRead_ || now - *configRead_ >= kConfigMilliseconds) {
        configRead_ = now;
        config_ = MeasurementConfig::read(environment_.parameters);
    }
}

}  // namespace pellumar
