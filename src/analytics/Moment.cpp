#include "analytics/Moment.h"

#include <time.h>

#include <QDateTime>

namespace pellumar {
namespace {

qint64 milliseconds(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return static_cast<qint64>(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
}

}  // namespace

Moment Moment::now() {
    return {.wall = milliseconds(CLOCK_REALTIME),
            .elapsed = milliseconds(CLOCK_BOOTTIME),
            .awake = milliseconds(CLOCK_MONOTONIC)};
}

qint64 localDay(qint64 wall) {
    return QDate(1970, 1, 1).daysTo(QDateTime::fromMSecsSinceEpoch(wall).date());
}

}  // namespace pellumar
