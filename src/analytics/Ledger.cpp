#include "analytics/Ledger.h"

#include <system_error>

#include "analytics/MeasurementFolder.h"

namespace pellumar {
namespace {

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
      recorder_(environment, rules) {}

bool Ledger::record(const Intake::Work& work) {
    // Nothing is made before there is something to keep.
    if (!store_ && work.items.empty() && !rules_.consent.mayMeasure() &&
        !isThere(MeasurementFolder::storeIn(environment_.folder))) {
        return true;
    }
    // A damaged store is replaced at once.
    constexpr int kMostTries = 2;
    for (int i = 0; i < kMostTries; ++i) {
        DatabaseOutcome outcome = open(work.isInFront);
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

DatabaseOutcome Ledger::open(bool isInFront) {
    if (store_) {
        return DatabaseOutcome::kDone;
    }
    store_ = std::make_unique<AnalyticsStore>(environment_.folder, environment_.mostBytes);
    const DatabaseOutcome outcome = store_->takeOutcome();
    if (outcome != DatabaseOutcome::kDone) {
        store_.reset();
        return outcome;
    }
    recorder_.use(*store_, !isReplaced_, isInFront);
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
}

void Ledger::hurry() {
    if (store_) {
        store_->hurry();
    }
}

}  // namespace pellumar
