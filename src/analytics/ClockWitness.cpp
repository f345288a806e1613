#include "analytics/ClockWitness.h"

namespace pellumar {
namespace {

const QString kSeen = QStringLiteral("clock_seen");
const QString kSteadySince = QStringLiteral("clock_steady_since");

}  // namespace

bool ClockWitness::confirms(qint64 now) {
    const std::optional<qint64> seen = state_.number(kSeen);
    const bool isSteady = seen && now >= *seen && now - *seen <= kLongestGap;
    const qint64 since = isSteady ? state_.number(kSteadySince).value_or(now) : now;
    state_.set(kSeen, now);
    state_.set(kSteadySince, since);
    return now - since >= kProbation;
}

}  // namespace pellumar
