#include "analytics/Uploader.h"

#include <QRandomGenerator>
#include <algorithm>
#include <utility>

#include "analytics/Gzip.h"
#include "analytics/OtlpEncoder.h"

namespace pellumar {
namespace {

// After the lock was another's, or the store could not be read.
constexpr qint64 kLaterMilliseconds = 1000;

// OTLP/HTTP, "Failures" and "Throttling".
bool isWorthAnotherTry(int status) {
    // A redirect is not from a collector.
    return status == 0 || (status >= 300 && status < 400) || status == 429 || status == 502 ||
           status == 503 || status == 504;
}

bool isSuccess(int status) {
    return status >= 200 && status < 300;
}

// What answers with a page for people is on the way to a collector, and has not passed anything on.
bool isPage(const LogTransport::Answer& answer) {
    return answer.contentType.toLower().contains("html") || answer.body.trimmed().startsWith('<');
}

}  // namespace

std::filesystem::path Uploader::lockIn(const std::filesystem::path& folder) {
    return folder / "upload.lock";
}

Uploader::Uploader(AnalyticsStore& store,
                   LogTransport& transport,
                   ProductVersions versions,
                   const std::filesystem::path& folder)
    : store_(store),
      transport_(transport),
      versions_(std::move(versions)),
      lock_(lockIn(folder)),
      hold_(store.state()) {}

Uploader::~Uploader() {
    if (isUnderway()) {
        transport_.cancel();
    }
}

DatabaseOutcome Uploader::poll(const Situation& situation) {
    const DatabaseOutcome outcome = takeAnswer(situation);
    if (outcome != DatabaseOutcome::kDone || isUnderway() || nextPoll(situation) != 0) {
        return outcome;
    }
    draining_ = true;
    return sendBatch(situation);
}

void Uploader::hurry(const Situation& situation) {
    // Whatever is wrong with the store, nothing will be done about it in this process.
    static_cast<void>(takeAnswer(situation));
    if (!isUnderway() && hold_.waitAt(situation.now.wall) == 0 && transport_.knowsTheWay()) {
        static_cast<void>(sendBatch(situation));
    }
}

std::optional<qint64> Uploader::nextPoll(const Situation& situation) {
    if (isUnderway()) {
        return std::nullopt;
    }
    const qint64 waiting = store_.events().count(situation.config.batchEvents);
    if (waiting == 0) {
        return std::nullopt;
    }
    const qint64 sinceActivity = situation.now.elapsed - situation.lastActivity;
    const qint64 idleIn = std::max<qint64>(0, situation.idle - sinceActivity);
    const qint64 heldFor = hold_.waitAt(situation.now.wall);
    qint64 dueIn = 0;
    if (!draining_ && drained_ && waiting < situation.config.batchEvents) {
        const std::chrono::milliseconds interval = situation.config.interval;
        dueIn = std::max<qint64>(0, *drained_ + interval.count() - situation.now.elapsed);
    }
    return std::max({idleIn, heldFor, dueIn});
}

DatabaseOutcome Uploader::takeAnswer(const Situation& situation) {
    if (!isUnderway()) {
        return DatabaseOutcome::kDone;
    }
    const std::optional<LogTransport::Answer> answer = transport_.takeAnswer();
    if (!answer) {
        return DatabaseOutcome::kDone;
    }
    const DatabaseOutcome outcome = judge(*answer, situation.now.wall);
    lock_.release();
    if (store_.events().count(1) == 0) {
        draining_ = false;
        drained_ = situation.now.elapsed;
    }
    return outcome;
}

DatabaseOutcome Uploader::judge(const LogTransport::Answer& answer, qint64 now) {
    const std::vector<qint64> rows = std::exchange(underway_, {});
    const bool accepted = isSuccess(answer.status);
    if ((accepted && isPage(answer)) || isWorthAnotherTry(answer.status)) {
        hold_.fail(now, answer.retryAfter, QRandomGenerator::global()->generateDouble());
        store_.database().begin();
        hold_.save(store_.state());
        // Unwritten, it holds this process nevertheless.
        return store_.database().commit();
    }
    hold_.succeed();
    const auto all = static_cast<qint64>(rows.size());
    return remove(rows,
                  accepted ? std::clamp<qint64>(otlp::rejectedRecords(answer.body), 0, all) : all);
}

DatabaseOutcome Uploader::remove(const std::vector<qint64>& rows, qint64 refused) {
    store_.database().begin();
    store_.events().remove(rows);
    store_.losses().add(loss::kRefused, refused);
    hold_.save(store_.state());
    const DatabaseOutcome outcome = store_.database().commit();
    if (outcome != DatabaseOutcome::kDone) {
        unremoved_ = rows;
    }
    return outcome;
}

DatabaseOutcome Uploader::sendBatch(const Situation& situation) {
    const qint64 now = situation.now.wall;
    if (!lock_.take()) {
        hold_.pause(now, kLaterMilliseconds);
        return DatabaseOutcome::kDone;
    }
    DatabaseOutcome outcome = DatabaseOutcome::kDone;
    if (!unremoved_.empty()) {
        outcome = remove(std::exchange(unremoved_, {}), 0);
    }
    if (outcome == DatabaseOutcome::kDone) {
        outcome = readAndSend(situation);
    }
    if (!isUnderway()) {
        lock_.release();
        if (hold_.waitAt(now) == 0) {
            hold_.pause(now, kLaterMilliseconds);
        }
    }
    return outcome;
}

DatabaseOutcome Uploader::readAndSend(const Situation& situation) {
    // One snapshot, in which events, properties and hold belong together.
    store_.database().begin();
    const std::vector<StoredEvent> events =
        store_.events().oldest(situation.config.batchEvents, kMostBatchBytes);
    const BatchSource source{
        .versions = versions_,
        .installation = store_.installation().current(),
        .userProperties = store_.userProperties().all(),
        .losses = store_.losses().all(),
        .consent = situation.consent,
    };
    const RetryHold kept(store_.state());
    const DatabaseOutcome outcome = store_.database().commit();
    if (outcome != DatabaseOutcome::kDone || events.empty()) {
        return outcome;
    }
    // Another process may have been told to wait.
    if (kept.waitAt(situation.now.wall) > 0) {
        hold_ = kept;
        return outcome;
    }
    std::transform(
        events.begin(), events.end(), std::back_inserter(underway_), [](const StoredEvent& event) {
            return event.row;
        });
    transport_.send(gzip(otlp::encode(source, events)));
    return outcome;
}

}  // namespace pellumar
