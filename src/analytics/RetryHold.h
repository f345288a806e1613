#pragma once

#include <QByteArray>
#include <QtGlobal>

#include "analytics/StateTable.h"

namespace pellumar {

// How long a collector that could not take a batch is left alone: as long as it asked for, else
// twice as long with every failure, with some chance in it so that not all come back at once. It is
// kept, for the next process has to wait as well. Moments are milliseconds since 1970 in UTC.
class RetryHold {
  public:
    static constexpr qint64 kFirstWait = 10'000;
    static constexpr qint64 kLongestBackoff = 60LL * 60 * 1000;

    // Reads what an earlier process kept.
    explicit RetryHold(StateTable& state);

    // A failure at `now`, with the header Retry-After if there was one. `chance` is from 0 to 1.
    void fail(qint64 now, const QByteArray& retryAfter, double chance);
    void succeed();
    // Waits for a reason of this process alone.
    void pause(qint64 now, qint64 milliseconds);
    // Within a transaction.
    void save(StateTable& state) const;

    // Milliseconds to wait from `now` on; 0: none. A clock that was set back to before the failure
    // ends it: one try too early is better than none as long as the clock was ahead.
    [[nodiscard]] qint64 waitAt(qint64 now) const;

  private:
    qint64 failures_ = 0;
    qint64 from_ = 0;
    qint64 until_ = 0;
};

}  // namespace pellumar
