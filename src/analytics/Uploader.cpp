#include "analytics/Uploader.h"

#include <QRandomGenerator>
#include <algorithm>
#include <utility>

#include "analytics/OtlpEncoder.h"
#include "platform/RetryAfter.h"

namespace pellumar {
namespace {

constexpr qint64 kLaterMilliseconds = 1000;
// Of two, so that nothing overflows.
constexpr qint64 kMostDoublings = 12;

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

void RetryHold::fail(qint64 now, const QByteArray& retryAfter, double chance) {
    const qint64 longest =
        std::min(kFirstWait << std::min(failures, kMostDoublings), kLongestBackoff);
    // At least half of it, so that the collector is spared in any case.
    const qint64 half = longest / 2;
    ++failures;
    from = now;
    until = retryMoment(retryAfter, now)
                .value_or(now + half + static_cast<qint64>(chance * static_cast<double>(half)));
}

qint64 RetryHold::waitAt(qint64 now) const {
    if (now < from) {
        return 0;
    }
    const qint64 whole = std::clamp<qint64>(until - from, 0, kLongestHold);
    return std::clamp<qint64>(until - now, 0, whole);
}

Uploader::Uploader(AnalyticsStore& store, LogTransport& transport, const ProductVersions& versions)
    : store_(store),
      transport_(transport),
      versions_(versions),
      hold_{.failures = store.memory().failures,
            .from = store.memory().heldFrom,
            .until = store.memory().heldUntil} {}

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
    const qint64 waiting = store_.waiting(situation.config.batchEvents);
    if (waiting == 0) {
        return std::nullopt;
    }
    const qint64 now = situation.now.elapsed;
    const qint64 idleIn = std::max<qint64>(0, situation.idle - (now - situation.lastActivity));
    const qint64 triedIn =
        triedInVain_ ? std::max<qint64>(0, *triedInVain_ + kLaterMilliseconds - now) : 0;
    qint64 dueIn = 0;
    if (!draining_ && drained_ && waiting < situation.config.batchEvents) {
        const std::chrono::milliseconds interval = situation.config.interval;
        dueIn = std::max<qint64>(0, *drained_ + interval.count() - now);
    }
    return std::max({idleIn, triedIn, hold_.waitAt(situation.now.wall), dueIn});
}

DatabaseOutcome Uploader::takeAnswer(const Situation& situation) {
    const auto answer = isUnderway() ? transport_.takeAnswer() : std::nullopt;
    if (!answer) {
        return DatabaseOutcome::kDone;
    }
    const DatabaseOutcome outcome = judge(*answer, situation.now.wall);
    if (store_.waiting(1) == 0) {
        draining_ = false;
        drained_ = situation.now.elapsed;
    }
    return outcome;
}

DatabaseOutcome Uploader::judge(const LogTransport::Answer& answer, qint64 now) {
    std::vector<qint64> rows = std::exchange(underway_, {});
    const bool accepted = isSuccess(answer.status);
    if ((accepted && isPage(answer)) || isWorthAnotherTry(answer.status)) {
        // Unwritten, it holds this process nevertheless.
        hold_.fail(now, answer.retryAfter, QRandomGenerator::global()->generateDouble());
        return settle(0);
    }
    hold_ = {};
    const auto all = static_cast<qint64>(rows.size());
    answered_.insert(answered_.end(), rows.begin(), rows.end());
    return settle(accepted ? std::clamp<qint64>(otlp::rejectedRecords(answer.body), 0, all) : all);
}

DatabaseOutcome Uploader::settle(qint64 refused) {
    Change change{.memory = store_.memory(), .losses = {{loss::kRefused, refused}}};
    change.gone = answered_;
    change.memory.failures = hold_.failures;
    change.memory.heldFrom = hold_.from;
    change.memory.heldUntil = hold_.until;
    const DatabaseOutcome outcome = store_.write(change);
    if (outcome == DatabaseOutcome::kDone) {
        answered_.clear();
    }
    return outcome;
}

DatabaseOutcome Uploader::sendBatch(const Situation& situation) {
    DatabaseOutcome outcome = answered_.empty() ? DatabaseOutcome::kDone : settle(0);
    const std::vector<StoredEvent> events =
        outcome == DatabaseOutcome::kDone
            ? store_.oldest(situation.config.batchEvents, kMostBatchBytes)
            : std::vector<StoredEvent>();
    triedInVain_ = events.empty() ? std::optional(situation.now.elapsed) : std::nullopt;
    if (events.empty()) {
        return outcome;
    }
    for (const StoredEvent& event : events) {
        underway_.push_back(event.row);
    }
    transport_.send(otlp::gzip(otlp::encode({.versions = versions_,
                                             .installation = store_.memory().installation,
                                             .userProperties = store_.properties(),
                                             .losses = store_.losses(),
                                             .consent = situation.consent},
                                            events)));
    return outcome;
}

}  // namespace pellumar
