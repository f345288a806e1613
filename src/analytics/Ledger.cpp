#include "analytics/Ledger.h"

#include <system_error>

#include "analytics/MeasurementFolder.h"

namespace pellumar {

Ledger::Ledger(const AnalyticsEnvironment& environment,
               const Rules& rules,
               HttpTransport* transport)
    : environment_(environment),
      rules_(rules),
      transport_(transport),
      recorder_(environment, rules) {}

bool Ledger::record(const Intake::Work& work) {
    // Nothing is made before there is something to keep.
    std::error_code error;
    if (!store_ && work.items.empty() && !rules_.consent.mayMeasure() &&
        !std::filesystem::exists(MeasurementFolder::storeIn(environment_.folder), error)) {
        return true;
    }
    // A damaged store is replaced at once.
    constexpr int kMostTries = 2;
    for (int i = 0; i < kMostTries; ++i) {
        DatabaseOutcome outcome = open();
        if (outcome == DatabaseOutcome::kDone) {
            outcome = recorder_.record(work);
        }
        if (outcome == DatabaseOutcome::kDone) {
            followAudiences(environment_, *store_, rules_.consent);
            return true;
        }
        recover(outcome);
    }
    return false;
}

DatabaseOutcome Ledger::open() {
    if (store_) {
        return DatabaseOutcome::kDone;
    }
    store_ = std::make_unique<AnalyticsStore>(environment_.folder, environment_.mostBytes);
    const DatabaseOutcome outcome = store_->takeOutcome();
    if (outcome != DatabaseOutcome::kDone) {
        store_.reset();
        return outcome;
    }
    recorder_.use(*store_, !isReplaced_);
    if (transport_ != nullptr) {
        uploader_ = std::make_unique<Uploader>(*store_, *transport_, environment_.versions, rules_);
    }
    return outcome;
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
    close();
    isReplaced_ = true;
    return MeasurementFolder::clear(environment_.folder);
}

void Ledger::close() {
    uploader_.reset();
    store_.reset();
}

void Ledger::stopSending() {
    if (uploader_) {
        uploader_->cancel();
    }
}

void Ledger::hurry() {
    if (store_) {
        store_->hurry();
    }
}

}  // namespace pellumar
