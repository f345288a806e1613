#include "platform/RetryAfter.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>

namespace pellumar {
namespace {

// Neither a sign nor a space; more digits than a number holds are a very long time.
std::optional<qint64> milliseconds(const QByteArray& digits) {
    const bool onlyDigits =
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (digits.isEmpty() || !onlyDigits) {
        return std::nullopt;
    }
    bool fits = false;
    const qint64 seconds = digits.toLongLong(&fits);
    return fits ? std::min(seconds, kLongestHold / 1000) * 1000 : kLongestHold;
}

}  // namespace

std::optional<qint64> retryMoment(const QByteArray& header, qint64 now) {
    const QByteArray text = header.trimmed();
    if (const std::optional<qint64> wait = milliseconds(text)) {
        return now + *wait;
    }
    QDateTime date = QLocale::c().toDateTime(QString::fromLatin1(text),
                                             QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'"));
    if (!date.isValid()) {
        return std::nullopt;
    }
    date.setTimeSpec(Qt::UTC);
    return std::clamp(date.toMSecsSinceEpoch(), now, now + kLongestHold);
}

}  // namespace pellumar
