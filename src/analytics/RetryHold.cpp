#include "analytics/RetryHold.h"

#include <algorithm>

#include "platform/RetryAfter.h"

namespace pellumar {
namespace {

const QString kFailures = QStringLiteral("upload_failures");
const QString kFrom = QStringLiteral("upload_held_from");
const QString kUntil = QStringLiteral("upload_held_until");

// Of two, so that nothing overflows.
constexpr qint64 kMostDoublings = 12;

qint64 backoff(qint64 failures, double chance) {
    const qint64 doublings = std::min(failures - 1, kMostDoublings);
    const qint64 longest = std::min(RetryHold::kFirstWait << doublings, RetryHold::kLongestBackoff);
    // At least half of it, so that the collector is spared in any case.
    const qint64 half = longest / 2;
    return half + static_cast<qint64>(chance * static_cast<double>(half));
}

}  // namespace

RetryHold::RetryHold(StateTable& state)
    : failures_(state.number(kFailures).value_or(0)),
      from_(state.number(kFrom).value_or(0)),
      until_(state.number(kUntil).value_or(0)) {}

void RetryHold::fail(qint64 now, const QByteArray& retryAfter, double chance) {
    ++failures_;
    from_ = now;
    until_ = retryMoment(retryAfter, now).value_or(now + backoff(failures_, chance));
}

void RetryHold::succeed() {
    failures_ = 0;
    from_ = 0;
    until_ = 0;
}

void RetryHold::pause(qint64 now, qint64 milliseconds) {
    from_ = now;
    until_ = now + milliseconds;
}

void RetryHold::save(StateTable& state) const {
    state.set(kFailures, failures_);
    state.set(kFrom, from_);
    state.set(kUntil, until_);
}

qint64 RetryHold::waitAt(qint64 now) const {
    if (now < from_) {
        return 0;
    }
    const qint64 whole = std::clamp<qint64>(until_ - from_, 0, kLongestHold);
    return std::clamp<qint64>(until_ - now, 0, whole);
}

}  // namespace pellumar
