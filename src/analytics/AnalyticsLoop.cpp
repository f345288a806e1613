#include "analytics/AnalyticsLoop.h"

#include <QTimer>
#include <algorithm>
#include <iterator>
#include <utility>

namespace pellumar {
namespace {

// When something that could not be done is tried again, if nothing new is said before: later every
// time, for it may never be possible.
constexpr qint64 kFirstRetryMilliseconds = 5000;
constexpr qint64 kLongestRetryMilliseconds = 10LL * 60 * 1000;
constexpr qint64 kLongestSleep = 24LL * 60 * 60 * 1000;
constexpr qint64 kConfigMilliseconds = 60'000;

}  // namespace

AnalyticsLoop::AnalyticsLoop(const AnalyticsEnvironment& environment,
                             Intake& intake,
                             CrashMarker* marker)
    : environment_(environment),
      intake_(intake),
      marker_(marker),
      folder_(environment.folder),
      transport_(environment.transport ? environment.transport() : nullptr),
      rules_{.consent = Consent(environment.consent), .config = {}},
      ledger_(environment, rules_, transport_.get()),
      // A start is not a time to send either.
      lastActivity_(environment.now().elapsed) {}

void AnalyticsLoop::run() {
    intake_.setWaker([this] { loop_.wakeUp(); });
    while (intake_.deadline().isForever()) {
        const bool isMore = work();
        if (Uploader* const uploader = mayUse(); uploader != nullptr) {
            // For want of room nothing is thrown away here: what has left makes some.
            const DatabaseOutcome outcome = uploader->poll(environment_.now(), idleIn());
            ledger_.recover(outcome);
            isStuck_ = isStuck_ || ledger_.uploader() == nullptr;
        }
        if (isMore) {
            loop_.processEvents();
        } else {
            sleep();
        }
    }
    sayFarewell();
    intake_.close();
}

bool AnalyticsLoop::work() {
    readConfig();
    Intake::Work taken = intake_.take();
    if (!taken.items.empty()) {
        lastActivity_ = environment_.now().elapsed;
    }
    std::move(taken.items.begin(), taken.items.end(), std::back_inserter(said_));
    work_.dropped += taken.dropped;
    work_.invalid += taken.invalid;
    Intake::Outcome outcome;
    const bool isKnown = knowsConsent();
    const Consent& consent = rules_.consent;
    if (isKnown) {
        sift();
        work_.isInFront = taken.isInFront;
        outcome.isObeyed = obey();
        if (!consent.mayKeep()) {
            ledger_.stopSending();
        }
        outcome.isStored =
            consent.allowsStorage() && !consent.isErasureOwed && ledger_.record(work_);
    }
    const bool isLeft = !outcome.isStored && (!isKnown || consent.allowsStorage());
    if (!isLeft) {
        work_ = {};
    }
    isStuck_ = isLeft || !outcome.isObeyed;
    if (marker_ != nullptr) {
        marker_->arm(ledger_.isStartTold() && consent.mayMeasure());
    }
    intake_.finish(taken.ticket, outcome, isKnown ? std::optional(consent) : std::nullopt, isLeft);
    return taken.isNew;
}

bool AnalyticsLoop::knowsConsent() {
    if (saved_ || !folder_.hold()) {
        return saved_.has_value();
    }
    if (const std::optional<QByteArray> kept = folder_.readConsent()) {
        if (!kept->isEmpty()) {
            rules_.consent.read(*kept);
        }
        saved_ = rules_.consent;
        // A process that was killed may have left something.
        rules_.consent.isErasureOwed |= !rules_.consent.allowsStorage();
    }
    return saved_.has_value();
}

void AnalyticsLoop::sift() {
    Consent& consent = rules_.consent;
    for (Accepted& item : std::exchange(said_, {})) {
        if (const auto* const answer = std::get_if<Answer>(&item.what)) {
            const bool wasOwed = std::exchange(consent.isErasureOwed, false);
            (*answer)(consent);
            if (consent.isErasureOwed) {
                work_ = Intake::Work();
            }
            consent.isErasureOwed = consent.isErasureOwed || wasOwed;
        } else if (consent.mayKeep()) {
            work_.items.push_back(std::move(item));
        }
    }
}

bool AnalyticsLoop::obey() {
    // First, so that it is done by the next start if this process ends on the way.
    bool isSaved = save();
    if (rules_.consent.isErasureOwed && ledger_.erase()) {
        rules_.consent.isErasureOwed = false;
        // On a full disk there is room for it now.
        isSaved = save();
    }
    return isSaved && !rules_.consent.isErasureOwed;
}

bool AnalyticsLoop::save() {
    if (saved_ != rules_.consent && folder_.writeConsent(rules_.consent.toJson())) {
        saved_ = rules_.consent;
    }
    return saved_ == rules_.consent;
}

Uploader* AnalyticsLoop::mayUse() {
    const std::optional<Consent> now = intake_.consent();
    return now && now->mayKeep() && !now->isErasureOwed ? ledger_.uploader() : nullptr;
}

void AnalyticsLoop::sleep() {
    qint64 wait = isStuck_ ? std::max(retry_, kFirstRetryMilliseconds) : kLongestSleep;
    retry_ = isStuck_ ? std::min(2 * wait, kLongestRetryMilliseconds) : 0;
    if (Uploader* const uploader = mayUse(); uploader != nullptr) {
        wait = std::min(wait, uploader->nextPoll(environment_.now(), idleIn()).value_or(wait));
    }
    waitForEvent(wait);
}

void AnalyticsLoop::sayFarewell() {
    const QDeadlineTimer deadline = intake_.deadline();
    ledger_.hurry();
    work();
    if (marker_ != nullptr) {
        marker_->arm(false);
    }
    Uploader* uploader = nullptr;
    while ((uploader = mayUse()) != nullptr && !deadline.hasExpired() &&
           uploader->hurry(environment_.now())) {
        waitForEvent(deadline.remainingTime());
    }
}

void AnalyticsLoop::waitForEvent(qint64 milliseconds) {
    QTimer timer;
    timer.setSingleShot(true);
    timer.start(std::chrono::milliseconds(milliseconds));
    loop_.processEvents(QEventLoop::WaitForMoreEvents);
}

qint64 AnalyticsLoop::idleIn() const {
    const qint64 quiet = environment_.now().elapsed - lastActivity_;
    return std::max<qint64>(0, environment_.idle.count() - quiet);
}

void AnalyticsLoop::readConfig() {
    const qint64 now = environment_.now().elapsed;
    if (!configRead_ || now - *configRead_ >= kConfigMilliseconds) {
        configRead_ = now;
        rules_.config = MeasurementConfig::read(environment_.parameters);
    }
}

}  // namespace pellumar
