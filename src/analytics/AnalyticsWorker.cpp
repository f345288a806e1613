#include "analytics/AnalyticsWorker.h"

#include <QFile>
#include <QTimer>
#include <algorithm>
#include <array>
#include <iterator>
#include <system_error>
#include <utility>

namespace pellumar {
namespace {

// What is written in one transaction.
constexpr std::size_t kMostInTransaction = 500;
// When a store that could not be written is tried again, if nothing new is said before.
constexpr qint64 kRetryMilliseconds = 5000;
constexpr qint64 kUpkeepMilliseconds = 24LL * 60 * 60 * 1000;

// What the user wants, who is not kept waiting.
bool isAnswer(const QueueItem& item) {
    return std::holds_alternative<ConsentChange>(item.what) ||
           std::holds_alternative<InstallationReset>(item.what);
}

// Or until so much time has passed.
void waitForEvent(QEventLoop& loop, qint64 milliseconds) {
    QTimer timer;
    timer.setSingleShot(true);
    timer.start(std::chrono::milliseconds(milliseconds));
    loop.processEvents(QEventLoop::WaitForMoreEvents);
}

// What is not for the recorder.
bool isControl(const QueueItem& item) {
    return isAnswer(item) || std::holds_alternative<Fence>(item.what);
}

}  // namespace

AnalyticsWorker::AnalyticsWorker(AnalyticsEnvironment environment,
                                 EventQueue& queue,
                                 CrashMarker* marker)
    : environment_(std::move(environment)),
      audiences_(environment_.audiences),
      queue_(queue),
      marker_(marker),
      consent_(environment_.folder),
      erasure_(environment_.folder),
      mayStore_(!isDenied()),
      answered_(consent_.timeOf(ConsentKind::kAnalyticsStorage)) {}

void AnalyticsWorker::run(const std::stop_token& stop) {
    QEventLoop loop;
    queue_.setWaker([&loop] { loop.wakeUp(); });
    ending_ = stop;
    // Runs from the moment that somebody waits for the end.
    QDeadlineTimer deadline(QDeadlineTimer::Forever);
    {
        const std::stop_callback wake(stop, [&] {
            deadline.setRemainingTime(kLongestFarewell);
            loop.wakeUp();
        });
        if (environment_.transport) {
            transport_ = environment_.transport();
        }
        obeyConsent();
        // A start is not a time to send either.
        lastActivity_ = environment_.clock->now().elapsed;
        while (!stop.stop_requested()) {
            if (work()) {
                loop.processEvents();
            } else {
                sleep(loop);
            }
        }
    }
    queue_.setWaker({});
    sayFarewell(loop, deadline);
    closeStore();
    transport_.reset();
    watcher_.reset();
}

bool AnalyticsWorker::work() {
    queue_.take(fresh_);
    const bool isNew = !fresh_.empty();
    if (isNew) {
        lastActivity_ = environment_.clock->now().elapsed;
        const qint64 dropped = queue_.takeDropped();
        dropped_ += dropped;
        isIncomplete_ = isIncomplete_ || dropped > 0;
        backlog_.insert(backlog_.end(),
                        std::make_move_iterator(fresh_.begin()),
                        std::make_move_iterator(fresh_.end()));
        fresh_.clear();
    }
    obeyOthers();
    if (consent_.save()) {
        obeyConsent();
    }
    erasure_.look();
    if (erasure_.isOwed()) {
        erase();
    }
    config_ = MeasurementConfig::read(environment_.parameters);
    if (store_ && store_->isMoved()) {
        closeStore();
    }
    forgetUnanswered();
    workOff();
    if (openStore() && !ending_.stop_requested()) {
        upkeep();
    }
    if (!ending_.stop_requested()) {
        upload();
    }
    return isNew;
}

void AnalyticsWorker::upload() {
    // Recording may have taken a while.
    obeyOthers();
    if (!uploader_) {
        return;
    }
    const DatabaseOutcome outcome = uploader_->poll(situation());
    // For want of room nothing is thrown away here: what has left makes some.
    if (outcome == DatabaseOutcome::kDamaged || outcome == DatabaseOutcome::kUnavailable) {
        recover(outcome);
    }
}

void AnalyticsWorker::hurry() {
    obeyOthers();
    if (uploader_) {
        uploader_->hurry(situation());
    }
}

void AnalyticsWorker::sleep(QEventLoop& loop) {
    const Uploader::Situation now = situation();
    qint64 wait = kUpkeepMilliseconds;
    if (uploader_) {
        wait = uploader_->nextPoll(now).value_or(wait);
    }
    const bool isStuck = !backlog_.empty() || !erasure_.mayKeep() ||
                         !consent_.isKnown(ConsentKind::kAnalyticsStorage) ||
                         (consent_.current().allowsStorage() && !store_);
    watchFolder();
    // Unwatched, it has to be looked at.
    const bool isBlind = watcher_->directories().isEmpty();
    if (isStuck || isBlind || consent_.isUnsaved()) {
        wait = std::min(wait, kRetryMilliseconds);
    }
    waitForEvent(loop, wait);
}

void AnalyticsWorker::watchFolder() {
    const QString folder = QFile::decodeName(environment_.folder.c_str());
    if (!watcher_) {
        watcher_ = std::make_unique<QFileSystemWatcher>();
    }
    if (watcher_->directories().isEmpty()) {
        // Fails while there is no folder, and so no answer in it.
        static_cast<void>(watcher_->addPath(folder));
    }
}

void AnalyticsWorker::sayFarewell(QEventLoop& loop, const QDeadlineTimer& deadline) {
    work();
    if (inFront_) {
        // Unwritten, it is told by the next start.
        static_cast<void>(record(std::array{QueueItem{.moment = environment_.clock->now(),
                                                      .what = ActivityChange{.active = false}}}));
    }
    failFences();
    hurry();
    while (uploader_ && uploader_->isUnderway() && !deadline.hasExpired()) {
        waitForEvent(loop, deadline.remainingTime());
        hurry();
    }
}

void AnalyticsWorker::workOff() {
    std::size_t done = 0;
    while (done < backlog_.size()) {
        if (isControl(backlog_[done])) {
            control(backlog_[done]);
            ++done;
            continue;
        }
        const std::size_t end = endOfRun(done);
        if (record(std::span(backlog_).subspan(done, end - done))) {
            done = end;
            continue;
        }
        // Nothing of it could be written now; after an answer of the user it may not be any more.
        const auto answer = std::find_if(
            backlog_.begin() + static_cast<std::ptrdiff_t>(end), backlog_.end(), isAnswer);
        if (answer == backlog_.end()) {
            break;
        }
        const auto next = static_cast<std::size_t>(answer - backlog_.begin());
        giveUp(std::span(backlog_).subspan(done, next - done));
        done = next;
    }
    backlog_.erase(backlog_.begin(), backlog_.begin() + static_cast<std::ptrdiff_t>(done));
    if (!backlog_.empty()) {
        failFences();
        boundBacklog();
    }
}

std::size_t AnalyticsWorker::endOfRun(std::size_t begin) const {
    std::size_t end = begin;
    while (end < backlog_.size() && end - begin < kMostInTransaction && !isControl(backlog_[end])) {
        ++end;
    }
    return end;
}

void AnalyticsWorker::failFences() {
    const auto isFence = [](const QueueItem& item) {
        return std::holds_alternative<Fence>(item.what);
    };
    for (const QueueItem& item : backlog_) {
        if (isFence(item)) {
            std::get<Fence>(item.what).stored->set_value(false);
        }
    }
    std::erase_if(backlog_, isFence);
}

void AnalyticsWorker::boundBacklog() {
    // The latest stay.
    std::size_t bytes = 0;
    std::size_t kept = 0;
    while (kept < std::min(backlog_.size(), EventQueue::kCapacity) &&
           (bytes += backlog_[backlog_.size() - 1 - kept].bytes) <= EventQueue::kMostBytes) {
        ++kept;
    }
    const std::size_t surplus = backlog_.size() - kept;
    if (surplus > 0) {
        giveUp(std::span(backlog_).first(surplus));
    }
    backlog_.erase(backlog_.begin(), backlog_.begin() + static_cast<std::ptrdiff_t>(surplus));
}

void AnalyticsWorker::giveUp(std::span<const QueueItem> items) {
    rememberActivity(items);
    for (const QueueItem& item : items) {
        if (const auto* const fence = std::get_if<Fence>(&item.what)) {
            fence->stored->set_value(false);
        } else {
            ++dropped_;
        }
    }
    isIncomplete_ = true;
}

bool AnalyticsWorker::record(std::span<const QueueItem> items) {
    if (isDenied()) {
        // Nor is it counted what was lost meanwhile.
        dropped_ = 0;
        rememberActivity(items);
        return true;
    }
    constexpr int kMostTries = 2;
    for (int i = 0; i < kMostTries && openStore(); ++i) {
        const Recorder::Result result =
            recorder_->record(items, dropped_, consent_.current(), config_);
        if (result.outcome == DatabaseOutcome::kDone) {
            dropped_ = 0;
            rememberActivity(items);
            tell(result.audiences);
            return true;
        }
        recover(result.outcome);
    }
    return false;
}

void AnalyticsWorker::recover(DatabaseOutcome outcome) {
    switch (outcome) {
        case DatabaseOutcome::kFull:
            store_->makeRoom();
            break;
        case DatabaseOutcome::kDamaged:
            closeStore();
            nextStore_ = AnalyticsStore::Reason::kReplaced;
            AnalyticsStore::remove(environment_.folder);
            break;
        case DatabaseOutcome::kUnavailable:
            closeStore();
            break;
        case DatabaseOutcome::kBusy:
        case DatabaseOutcome::kDone:
            break;
    }
}

void AnalyticsWorker::rememberActivity(std::span<const QueueItem> items) {
    for (const QueueItem& item : items) {
        if (const auto* const change = std::get_if<ActivityChange>(&item.what)) {
            inFront_ = change->active;
        }
    }
}

void AnalyticsWorker::control(const QueueItem& item) {
    if (const auto* const change = std::get_if<ConsentChange>(&item.what)) {
        consent_.set(change->kind, change->status, item.moment.wall);
        obeyConsent();
        answered_ = consent_.timeOf(ConsentKind::kAnalyticsStorage);
        // On a full disk there is room for the answer now.
        if (consent_.save()) {
            obeyConsent();
        }
        // Audiences depend on it.
        static_cast<void>(record({}));
    } else if (const auto* const fence = std::get_if<Fence>(&item.what)) {
        const bool complete = !std::exchange(isIncomplete_, false);
        fence->stored->set_value(openStore() && complete);
    } else {
        erase();
    }
}

void AnalyticsWorker::tell(const std::vector<Audiences::Change>& changes) const {
    if (!environment_.audienceChanged) {
        return;
    }
    for (const Audiences::Change& change : changes) {
        environment_.audienceChanged(change.audience, change.member);
    }
}

bool AnalyticsWorker::openStore() {
    if (store_) {
        return true;
    }
    if (!consent_.current().allowsStorage() || !erasure_.mayKeep()) {
        return false;
    }
    store_ = AnalyticsStore::open(environment_.folder, environment_.mostBytes, nextStore_, ending_);
    if (!store_) {
        return false;
    }
    std::optional<CrashReport> crash = CrashReport::claim(environment_.folder);
    const bool isClaimed = crash.has_value();
    if (crash && !isToBeTold(*crash)) {
        crash.reset();
    }
    recorder_ = std::make_unique<Recorder>(*store_, *environment_.clock, audiences_);
    const Recorder::Result started = recorder_->start(
        {.versions = environment_.versions, .crash = std::move(crash), .inFront = inFront_},
        consent_.current(),
        config_);
    if (started.outcome != DatabaseOutcome::kDone) {
        closeStore();
        return false;
    }
    if (isClaimed) {
        CrashReport::forget(environment_.folder);
    }
    nextStore_ = AnalyticsStore::Reason::kOpened;
    tell(started.audiences);
    if (transport_) {
        uploader_ = std::make_unique<Uploader>(
            *store_, *transport_, environment_.versions, environment_.folder);
    }
    return true;
}

bool AnalyticsWorker::isToBeTold(const CrashReport& crash) const {
    const std::optional<qint64> answered = consent_.timeOf(ConsentKind::kAnalyticsStorage);
    // It may have come to be while nothing was to be known.
    return !answered || crash.time >= *answered;
}

void AnalyticsWorker::closeStore() {
    uploader_.reset();
    recorder_.reset();
    store_.reset();
}

void AnalyticsWorker::erase() {
    const bool isWiped = store_ && store_->wipe();
    closeStore();
    nextStore_ = AnalyticsStore::Reason::kReplaced;
    erasure_.perform(isWiped, ending_);
    // Nor is a crash told of which nothing shall be known any more.
    CrashReport::erase(environment_.folder);
    dropped_ = 0;
}

void AnalyticsWorker::obeyConsent() {
    const bool allowed = consent_.current().allowsStorage();
    if (marker_ != nullptr) {
        marker_->arm(allowed);
    }
    if (isDenied()) {
        erase();
        mayStore_ = false;
    } else if (!allowed) {
        closeStore();
    } else if (!std::exchange(mayStore_, true)) {
        // A process that had not noticed the denial may have left one meanwhile.
        CrashReport::erase(environment_.folder);
    }
}

bool AnalyticsWorker::isDenied() const {
    return consent_.isKnown(ConsentKind::kAnalyticsStorage) && !consent_.current().allowsStorage();
}

void AnalyticsWorker::obeyOthers() {
    if (consent_.refresh()) {
        obeyConsent();
    }
}

void AnalyticsWorker::forgetUnanswered() {
    const std::optional<qint64> answered = consent_.timeOf(ConsentKind::kAnalyticsStorage);
    if (std::exchange(answered_, answered) != answered) {
        const Moment now = environment_.clock->now();
        const qint64 ago = answered ? std::max<qint64>(now.wall - *answered, 0) : 0;
        allowedSince_ = now.elapsed - ago;
    }
    const std::size_t forgotten = std::erase_if(backlog_, [this](const QueueItem& item) {
        const bool isMeasured = std::holds_alternative<LoggedEvent>(item.what) ||
                                std::holds_alternative<UserPropertyChange>(item.what);
        return isMeasured && allowedSince_ && item.moment.elapsed < *allowedSince_;
    });
    isIncomplete_ = isIncomplete_ || forgotten > 0;
}

void AnalyticsWorker::upkeep() {
    const qint64 now = environment_.clock->now().elapsed;
    if (lastUpkeep_ && now - *lastUpkeep_ < kUpkeepMilliseconds) {
        return;
    }
    lastUpkeep_ = now;
    recorder_->forgetOld(config_);
    // A day later, other audiences may be right.
    static_cast<void>(record({}));
}

Uploader::Situation AnalyticsWorker::situation() const {
    return {.now = environment_.clock->now(),
            .lastActivity = lastActivity_,
            .idle = environment_.idle.count(),
            .config = config_,
            .consent = consent_.current()};
}

}  // namespace pellumar
