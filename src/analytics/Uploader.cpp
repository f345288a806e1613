#include "analytics/Uploader.h"

#include <QRandomGenerator>
#include <algorithm>
#include <utility>

#include "analytics/OtlpEncoder.h"
#include "platform/RetryAfter.h"

namespace pellumar {
namespace {

// OTLP/HTTP, "Failures" and "Throttling".
bool isWorthAnotherTry(const HttpTransport::Answer& answer) {
    const int status = answer.status;
    if (status >= 200 && status < 300) {
        // A page for people is from something on the way, which has not passed anything on.
        return answer.contentType.toLower().contains("html");
    }
    // A redirect is not from a collector either.
    return status < 400 || status == 429 || status == 502 || status == 503 || status == 504;
}

}  // namespace

void RetryHold::fail(qint64 now, const QByteArray& retryAfter, double chance) {
    backoff = std::clamp(2 * backoff, kFirstWait, kLongestBackoff);
    // At least half of it, so that the collector is spared in any case.
    const qint64 half = backoff / 2;
    until = retryMoment(retryAfter, now)
                .value_or(now + half + static_cast<qint64>(chance * static_cast<double>(half)));
}

qint64 RetryHold::waitAt(qint64 now) const {
    return until - now > kLongestHold ? 0 : std::max<qint64>(0, until - now);
}

Uploader::Uploader(AnalyticsStore& store,
                   HttpTransport& transport,
                   const ProductVersions& versions,
                   const Rules& rules)
    : store_(store),
      transport_(transport),
      versions_(versions),
      rules_(rules),
      hold_{.backoff = store.memory().backoff, .until = store.memory().heldUntil} {}

void Uploader::cancel() {
    if (std::exchange(underway_, 0) > 0) {
        transport_.cancel();
    }
}

DatabaseOutcome Uploader::poll(const Moment& now, qint64 idleIn) {
    const DatabaseOutcome outcome = takeAnswer(now);
    if (outcome != DatabaseOutcome::kDone || nextPoll(now, idleIn) != 0) {
        return outcome;
    }
    drained_.reset();
    return sendBatch();
}

bool Uploader::hurry(const Moment& now) {
    // Whatever is wrong with the store, nothing will be done about it in this process.
    static_cast<void>(takeAnswer(now));
    if (underway_ == 0 && hold_.waitAt(now.wall) == 0 && transport_.knowsTheWay()) {
        static_cast<void>(sendBatch());
    }
    return underway_ > 0;
}

std::optional<qint64> Uploader::nextPoll(const Moment& now, qint64 idleIn) {
    const int batch = rules_.config.batchEvents;
    const qint64 waiting = underway_ > 0 ? 0 : store_.waiting(batch);
    if (waiting == 0) {
        return std::nullopt;
    }
    qint64 dueIn = 0;
    if (drained_ && waiting < batch) {
        const qint64 interval = qint64{rules_.config.intervalSeconds} * 1000;
        dueIn = std::max<qint64>(0, *drained_ + interval - now.elapsed);
    }
    return std::max({idleIn, hold_.waitAt(now.wall), dueIn});
}

DatabaseOutcome Uploader::takeAnswer(const Moment& now) {
    const auto answer = underway_ > 0 ? transport_.takeAnswer() : std::nullopt;
    if (!answer) {
        return DatabaseOutcome::kDone;
    }
    const DatabaseOutcome outcome = settle(*answer, now.wall);
    if (store_.waiting(1) == 0) {
        drained_ = now.elapsed;
    }
    return outcome;
}

DatabaseOutcome Uploader::settle(const HttpTransport::Answer& answer, qint64 now) {
    const qint64 sent = std::exchange(underway_, 0);
    Change change{.memory = store_.memory()};
    if (isWorthAnotherTry(answer)) {
        hold_.fail(now, answer.retryAfter, QRandomGenerator::global()->generateDouble());
    } else {
        hold_ = {};
        change.gone = sent;
    }
    change.memory.backoff = hold_.backoff;
    change.memory.heldUntil = hold_.until;
    const DatabaseOutcome outcome = store_.write(change);
    if (outcome != DatabaseOutcome::kDone && change.gone > 0) {
        // Still there, it would be sent at once again.
        hold_.fail(now, {}, 0);
    }
    return outcome;
}

DatabaseOutcome Uploader::sendBatch() {
    const std::vector<StoredEvent> events = store_.oldest(rules_.config.batchEvents);
    if (!events.empty()) {
        transport_.send(
            otlp::gzip(otlp::encode(versions_, rules_.consent, store_.memory(), events)));
        underway_ = events.back().row;
    }
    return store_.takeOutcome();
}

}  // namespace pellumar
