#include "analytics/AnalyticsClock.h"

#include <time.h>

#include <QDateTime>

namespace pellumar {
namespace {

constexpr qint64 kDay = 24LL * 60 * 60 * 1000;

qint64 milliseconds(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return static_cast<qint64>(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
}

}  // namespace

qint64 AnalyticsClock::dayOf(qint64 wall) const {
    const qint64 local = wall + utcOffset(wall);
    return local >= 0 ? local / kDay : (local + 1) / kDay - 1;
}

Moment SystemClock::now() const {
    return {.wall = milliseconds(CLOCK_REALTIME),
            .elapsed = milliseconds(CLOCK_BOOTTIME),
            .awake = milliseconds(CLOCK_MONOTONIC)};
}

qint64 SystemClock::utcOffset(qint64 wall) const {
    return QDateTime::fromMSecsSinceEpoch(wall).offsetFromUtc() * 1000LL;
}

}  // namespace pellumar
