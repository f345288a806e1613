#include "analytics/Ledger.h"

#include <system_error>

#include "analytics/MeasurementFolder.h"

namespace pellumar {
namespace {

constexpr qint64 kUpkeepMilliseconds = 24LL * 60 * 60 * 1000;

bool isThere(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::symlink_status(file, error).type() !=
           std::filesystem::file_type::not_found;
}

}  // namespace

Ledger::Ledger(const AnalyticsEnvironment& environment,
               const Rules& rules,
               HttpTransport* transport)
    : environment_(environment),
      rules_(rules),
      transport_(transport),
      recorder_(environment.now, environment.versions, rules) {}

bool Ledger::record(const Intake::Work& work) {
    // Nothing is made before there is something to keep.
    if (!store_ && work.items.empty() && !rules_.consent.mayMeasure() &&
        !isThere(MeasurementFolder::storeIn(environment_.folder))) {
        return true;
    }
    constexpr int kMostTries = 2;
    for (int i = 0; i < kMostTries && open(work); ++i) {
        const DatabaseOutcome outcome = write(work);
        if (outcome == DatabaseOutcome::kDone) {
            followAudiences();
            return true;
        }
        recover(outcome);
    }
    return false;
}

bool Ledger::open(const Intake::Work& work) {
    constexpr int kMostTries = 2;
    for (int i = 0; i < kMostTries && !store_; ++i) {
        store_ = std::make_unique<AnalyticsStore>(environment_.folder, environment_.mostBytes);
        if (const DatabaseOutcome outcome = store_->takeOutcome();
            outcome != DatabaseOutcome::kDone) {
            store_.reset();
            recover(outcome);
            continue;
        }
        recorder_.use(*store_, !isReplaced_, work.isInFront);
        if (transport_ != nullptr) {
            uploader_ =
                std::make_unique<Uploader>(*store_, *transport_, environment_.versions, rules_);
        }
    }
    return store_ != nullptr;
}

DatabaseOutcome Ledger::write(const Intake::Work& work) {
    const std::filesystem::path crash = MeasurementFolder::crashIn(environment_.folder);
    const bool mayMeasure = rules_.consent.mayMeasure();
    const qint64 now = environment_.now().elapsed;
    Recorder::Due due;
    due.upkeep =
        !lastUpkeep_ || measured_ != mayMeasure || now - *lastUpkeep_ >= kUpkeepMilliseconds;
    due.start = mayMeasure && !isStartTold_;
    if (due.start) {
        due.crash = CrashReport::read(crash);
    }
    if (work.items.empty() && work.dropped + work.invalid == 0 && !due.start && !due.upkeep) {
        return DatabaseOutcome::kDone;
    }
    const DatabaseOutcome outcome = recorder_.record(work, due);
    if (outcome != DatabaseOutcome::kDone) {
        return outcome;
    }
    isStartTold_ = isStartTold_ || due.start;
    if (due.upkeep) {
        lastUpkeep_ = now;
        measured_ = mayMeasure;
    }
    // It is told, or is not to be.
    if (due.crash || (due.upkeep && !mayMeasure && !rules_.consent.isPaused)) {
        std::error_code ignored;
        std::filesystem::remove(crash, ignored);
    }
    return outcome;
}

void Ledger::followAudiences() {
    const qint64 today = localDay(environment_.now().wall);
    for (const AudienceChange& change :
         pellumar::followAudiences(environment_.audiences, *store_, rules_.consent, today)) {
        if (environment_.audienceChanged) {
            environment_.audienceChanged(change.audience, change.member);
        }
    }
}

void Ledger::recover(DatabaseOutcome outcome) {
    if (outcome == DatabaseOutcome::kDamaged || outcome == DatabaseOutcome::kUnavailable) {
        close();
    }
    if (outcome == DatabaseOutcome::kDamaged) {
        isReplaced_ = true;
        static_cast<void>(MeasurementFolder::clear(environment_.folder));
    }
}

bool Ledger::erase() {
    bool isWiped = store_ && store_->wipe();
    close();
    isReplaced_ = true;
    if (MeasurementFolder::clear(environment_.folder)) {
        return true;
    }
    // Where one way is barred the other may be open.
    isWiped = isWiped || AnalyticsStore(environment_.folder).wipe();
    return isWiped && !isThere(MeasurementFolder::crashIn(environment_.folder));
}

void Ledger::close() {
    uploader_.reset();
    store_.reset();
    lastUpkeep_.reset();
    measured_ = false;
    isStartTold_ = false;
}

void Ledger::hurry() {
    if (store_) {
        store_->hurry();
    }
}

}  // namespace pellumar
