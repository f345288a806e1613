#pragma once

#include <optional>
#include <vector>

#include "analytics/AnalyticsClock.h"
#include "analytics/AnalyticsStore.h"
#include "analytics/Consent.h"
#include "analytics/LogTransport.h"
#include "analytics/MeasurementConfig.h"
#include "analytics/Recorder.h"

namespace pellumar {

// How long a collector that could not take a batch is left alone: as long as it asked for, else
// twice as long with every failure, with some chance in it so that not all come back at once. It is
// kept, for the next process has to wait as well. Moments are milliseconds since 1970 in UTC.
struct RetryHold {
    static constexpr qint64 kFirstWait = 10'000;
    static constexpr qint64 kLongestBackoff = 60LL * 60 * 1000;

    qint64 failures = 0;
    qint64 from = 0;
    qint64 until = 0;

    // A failure at `now`, with the header Retry-After if there was one. `chance` is from 0 to 1.
    void fail(qint64 now, const QByteArray& retryAfter, double chance);
    // Milliseconds to wait from `now` on; 0: none. A clock that was set back to before the failure
    // ends it: one try too early is better than none as long as the clock was ahead.
    [[nodiscard]] qint64 waitAt(qint64 now) const;
};

// Brings the events of a store to the collector, in batches, oldest first. An event is removed when
// the collector has answered for it, so it leaves at least once: a process that ends in between
// sends it again, with the same identifier. Nothing leaves without an event.
//
// What the protocol calls worth another try (429, 502, 503, 504, no answer) is tried again when the
// hold is over; a batch that gets any other answer is never sent again. One thread at a time.
class Uploader {
  public:
    // How much of texts and numbers a batch holds at most, far below the 20 MiB of a collector.
    static constexpr qsizetype kMostBatchBytes = 256 << 10;

    // What it has to know whenever it looks.
    struct Situation {
        Moment now;
        // When something was last said to the engine, by the clock that nobody sets.
        qint64 lastActivity = 0;
        // How long nothing has to be said before something is sent.
        qint64 idle = 0;
        const MeasurementConfig& config;
        const Consent& consent;
    };

    // All must outlive this.
    Uploader(AnalyticsStore& store, LogTransport& transport, const ProductVersions& versions);
    // Cancels what is on its way.
    ~Uploader();
    Uploader(const Uploader&) = delete;
    Uploader& operator=(const Uploader&) = delete;

    // Takes an answer that has come, and sends the next batch if one is due. Returns at once, with
    // what is wrong with the store.
    [[nodiscard]] DatabaseOutcome poll(const Situation& situation);
    // Sends whatever there is, without regard to idleness and size, but to the hold.
    void hurry(const Situation& situation);

    [[nodiscard]] bool isUnderway() const { return !underway_.empty(); }
    // After how many milliseconds poll() has something to do if nothing comes meanwhile; nothing:
    // never.
    [[nodiscard]] std::optional<qint64> nextPoll(const Situation& situation);

  private:
    [[nodiscard]] DatabaseOutcome takeAnswer(const Situation& situation);
    [[nodiscard]] DatabaseOutcome judge(const LogTransport::Answer& answer, qint64 now);
    // Removes what is answered for.
    [[nodiscard]] DatabaseOutcome settle(qint64 refused);
    [[nodiscard]] DatabaseOutcome sendBatch(const Situation& situation);

    AnalyticsStore& store_;
    LogTransport& transport_;
    const ProductVersions& versions_;
    RetryHold hold_;
    // The rows that are on their way.
    std::vector<qint64> underway_;
    // Answered for and to be removed, not sent; some stay while the store cannot be written.
    std::vector<qint64> answered_;
    // A batch was due, and what there is more goes with it.
    bool draining_ = false;
    // When there was last nothing left, by the clock that nobody sets.
    std::optional<qint64> drained_;
    // When the store could not be read, by the same clock.
    std::optional<qint64> triedInVain_;
};

}  // namespace pellumar
