#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <optional>

namespace pellumar {

// No server holds a client off longer than this, in milliseconds: a day.
inline constexpr qint64 kLongestHold = 24LL * 60 * 60 * 1000;

// The moment up to which a Retry-After header (RFC 9110, section 10.2.3: seconds, or a date in the
// form that servers have to write) asks a client to wait. All times are milliseconds since 1970 in
// UTC; the result is between `now` and `now + kLongestHold`. Nothing if the header is neither.
[[nodiscard]] std::optional<qint64> retryMoment(const QByteArray& header, qint64 now);

}  // namespace pellumar
