#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFileSystemWatcher>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

#include "analytics/AnalyticsEnvironment.h"
#include "analytics/AnalyticsStore.h"
#include "analytics/Audiences.h"
#include "analytics/ConsentState.h"
#include "analytics/CrashMarker.h"
#include "analytics/CrashReport.h"
#include "analytics/Erasure.h"
#include "analytics/EventQueue.h"
#include "analytics/Recorder.h"
#include "analytics/Uploader.h"

namespace pellumar {

// What the engine's thread does: takes what was said from the queue, obeys the consent, has it
// recorded, sees to the uploads and sleeps.
class AnalyticsWorker {
  public:
    // From when the end is asked for; the rest of 200 ms is for cleaning up.
    static constexpr std::chrono::milliseconds kLongestFarewell{150};

    // All must outlive this. `marker` may be null.
    AnalyticsWorker(AnalyticsEnvironment environment, EventQueue& queue, CrashMarker* marker);

    // Works until `stop` is requested; what was said before that is recorded first.
    void run(const std::stop_token& stop);

  private:
    // True if something new was said.
    bool work();
    void upload();
    void hurry();
    void sleep(QEventLoop& loop);
    void sayFarewell(QEventLoop& loop, const QDeadlineTimer& deadline);

    // Applies what is in the backlog; what cannot be written stays there.
    void workOff();
    // Behind the last of the items from `begin` on that go into one transaction.
    [[nodiscard]] std::size_t endOfRun(std::size_t begin) const;
    void failFences();
    void boundBacklog();
    // What cannot be written and will not be.
    void giveUp(std::span<const QueueItem> items);

    // False if it could not be written. Nothing is, and it is true, without consent.
    [[nodiscard]] bool record(std::span<const QueueItem> items);
    void recover(DatabaseOutcome outcome);
    void rememberActivity(std::span<const QueueItem> items);
    void control(const QueueItem& item);
    void tell(const std::vector<Audiences::Change>& changes) const;

    // False if there is none, as without consent and as long as something has to be erased.
    [[nodiscard]] bool openStore();
    [[nodiscard]] bool isToBeTold(const CrashReport& crash) const;
    // Wakes up when another process has written down an answer.
    void watchFolder();
    void closeStore();
    void erase();
    void obeyConsent();
    // Not so while it is not known, which is no reason to erase or to forget anything.
    [[nodiscard]] bool isDenied() const;
    // What another process has been told.
    void obeyOthers();
    // It may have been told no and then yes since this one looked, which was perhaps suspended:
    // what was said here before that is not kept.
    void forgetUnanswered();
    void upkeep();
    [[nodiscard]] Uploader::Situation situation() const;

    const AnalyticsEnvironment environment_;
    const Audiences audiences_;
    EventQueue& queue_;
    // Of run().
    std::stop_token ending_;
    CrashMarker* const marker_;

    ConsentState consent_;
    Erasure erasure_;
    bool mayStore_;
    // When the answer to storage was given that is obeyed now.
    std::optional<qint64> answered_;
    // By the clock that nobody sets; nothing if no other process has answered.
    std::optional<qint64> allowedSince_;
    MeasurementConfig config_;
    std::vector<QueueItem> fresh_;
    std::vector<QueueItem> backlog_;
    // Not recorded for want of room, and not counted in the store yet.
    qint64 dropped_ = 0;
    // Something has been dropped since the last fence.
    bool isIncomplete_ = false;
    bool inFront_ = false;
    qint64 lastActivity_ = 0;
    std::optional<qint64> lastUpkeep_;
    AnalyticsStore::Reason nextStore_ = AnalyticsStore::Reason::kOpened;

    std::unique_ptr<QFileSystemWatcher> watcher_;
    std::unique_ptr<LogTransport> transport_;
    std::unique_ptr<AnalyticsStore> store_;
    std::unique_ptr<Recorder> recorder_;
    std::unique_ptr<Uploader> uploader_;
};

}  // namespace pellumar
