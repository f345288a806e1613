#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "analytics/AnalyticsClock.h"
#include "analytics/AnalyticsStore.h"
#include "analytics/ConsentState.h"
#include "analytics/FileLock.h"
#include "analytics/LogTransport.h"
#include "analytics/MeasurementConfig.h"
#include "analytics/ProductVersions.h"
#include "analytics/RetryHold.h"

namespace pellumar {

// Brings the events of a store to the collector, in batches, oldest first. An event is removed when
// the collector has answered for it, so it leaves at least once: a process that ends in between
// sends it again, with the same identifier.
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
        Consent consent;
    };

    // The lock that one who sends holds: two would send everything twice.
    [[nodiscard]] static std::filesystem::path lockIn(const std::filesystem::path& folder);

    // All must outlive this. The lock stands in `folder`.
    Uploader(AnalyticsStore& store,
             LogTransport& transport,
             ProductVersions versions,
             const std::filesystem::path& folder);
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
    [[nodiscard]] DatabaseOutcome remove(const std::vector<qint64>& rows, qint64 refused);
    [[nodiscard]] DatabaseOutcome sendBatch(const Situation& situation);
    [[nodiscard]] DatabaseOutcome readAndSend(const Situation& situation);

    AnalyticsStore& store_;
    LogTransport& transport_;
    const ProductVersions versions_;
    FileLock lock_;
    RetryHold hold_;
    // The rows that are on their way.
    std::vector<qint64> underway_;
    // Answered for, but the store could not be written: to be removed, not sent.
    std::vector<qint64> unremoved_;
    // A batch was due, and what there is more goes with it.
    bool draining_ = false;
    // When there was last nothing left, by the clock that nobody sets.
    std::optional<qint64> drained_;
};

}  // namespace pellumar
