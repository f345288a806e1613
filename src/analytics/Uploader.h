#pragma once

#include <optional>

#include "analytics/AnalyticsEnvironment.h"

namespace pellumar {

// How long a collector that could not take a batch is left alone: as long as it asked for, else
// twice as long with every failure, with some chance in it so that not all come back at once. It is
// kept, for the next process has to wait as well. Moments are milliseconds since 1970 in UTC.
struct RetryHold {
    static constexpr qint64 kFirstWait = 10'000;
    static constexpr qint64 kLongestBackoff = 60LL * 60 * 1000;

    // The longest that the last failure may have brought about; 0: there was none.
    qint64 backoff = 0;
    qint64 until = 0;

    // A failure at `now`, with the header Retry-After if there was one. `chance` is from 0 to 1.
    void fail(qint64 now, const QByteArray& retryAfter, double chance);
    // Milliseconds to wait from `now` on; 0: none. Where they are more than there can be, the clock
    // was set back: one try too early is better than none as long as the clock was ahead.
    [[nodiscard]] qint64 waitAt(qint64 now) const;
};

// Brings the events of a store to the collector, in batches, oldest first. An event is removed when
// the collector has answered for it, so it leaves at least once: a process that ends in between, or
// cannot write, sends it again, with the same identifier. Nothing leaves without an event.
//
// What the protocol calls worth another try (429, 502, 503, 504, no answer) is tried again when the
// hold is over; a batch that gets any other answer is done with. One thread at a time.
class Uploader {
  public:
    // All must outlive this.
    Uploader(AnalyticsStore& store,
             HttpTransport& transport,
             const ProductVersions& versions,
             const Rules& rules);
    ~Uploader() { cancel(); }
    Uploader(const Uploader&) = delete;
    Uploader& operator=(const Uploader&) = delete;

    // Takes an answer that has come, and sends the next batch if one is due and nothing more may be
    // said within `idleIn` milliseconds. Returns at once, with what is wrong with the store.
    [[nodiscard]] DatabaseOutcome poll(const Moment& now, qint64 idleIn);
    // Sends whatever there is, without regard to idleness and size, but to the hold. False if
    // nothing is on its way.
    [[nodiscard]] bool hurry(const Moment& now);
    // Forgets the batch that is on its way, which stays in the store.
    void cancel();
    // After how many milliseconds poll() has something to do if nothing comes meanwhile; nothing:
    // never.
    [[nodiscard]] std::optional<qint64> nextPoll(const Moment& now, qint64 idleIn);

  private:
    [[nodiscard]] DatabaseOutcome takeAnswer(const Moment& now);
    [[nodiscard]] DatabaseOutcome settle(const HttpTransport::Answer& answer, qint64 now);
    [[nodiscard]] DatabaseOutcome sendBatch();

    AnalyticsStore& store_;
    HttpTransport& transport_;
    const ProductVersions& versions_;
    const Rules& rules_;
    RetryHold hold_;
    // The last row that is on its way; none: 0.
    qint64 underway_ = 0;
    // When there was last nothing left, by the clock that nobody sets. Nothing once a batch was
    // due: what there is more goes with it.
    std::optional<qint64> drained_;
};

}  // namespace pellumar
