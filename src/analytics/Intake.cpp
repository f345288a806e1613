#include "analytics/Intake.h"

#include <utility>

namespace pellumar {

void Intake::add(Accepted&& item) {
    const std::lock_guard lock(mutex_);
    if (const auto* const change = std::get_if<ActivityChange>(&item.what)) {
        isInFront_ = change->inFront;
    }
    if (deadline_.isForever() && (!consent_ || consent_->mayKeep())) {
        put(std::move(item));
    }
}

void Intake::put(Accepted&& item) {
    if (items_.size() + taken_ >= kCapacity) {
        ++dropped_;
    } else {
        items_.push_back(std::move(item));
    }
    wake();
}

void Intake::noteInvalid() {
    const std::lock_guard lock(mutex_);
    invalid_ += !consent_ || consent_->mayKeep() ? 1 : 0;
}

void Intake::answer(const Answer& answer) {
    const std::lock_guard lock(mutex_);
    if (consent_) {
        answer(*consent_);
    }
    items_.push_back({.moment = {}, .what = answer});
    wake();
}

std::optional<Consent> Intake::consent() const {
    const std::lock_guard lock(mutex_);
    return consent_;
}

Intake::Outcome Intake::waitUntilDone(std::chrono::milliseconds timeout) {
    std::unique_lock lock(mutex_);
    const int ticket = ++tickets_;
    wake();
    done_.wait_for(lock, timeout, [&] { return isClosed_ || doneTickets_ >= ticket; });
    return doneTickets_ >= ticket ? outcome_ : Outcome{};
}

void Intake::end(const Moment& now, std::chrono::milliseconds timeout) {
    const std::lock_guard lock(mutex_);
    if (!deadline_.isForever()) {
        return;
    }
    if (isInFront_) {
        put({.moment = now, .what = ActivityChange{.inFront = false}});
    }
    deadline_.setRemainingTime(timeout);
    // It may know of all that was said, and sleep.
    isNew_ = false;
    wake();
}

Intake::Work Intake::take() {
    std::vector<Accepted> room;
    room.reserve(kCapacity);
    const std::lock_guard lock(mutex_);
    taken_ += items_.size();
    return {.items = std::exchange(items_, std::move(room)),
            .dropped = std::exchange(dropped_, 0),
            .invalid = std::exchange(invalid_, 0),
            .isInFront = isInFront_,
            .ticket = tickets_,
            .isNew = std::exchange(isNew_, false)};
}

void Intake::finish(int ticket,
                    const Outcome& outcome,
                    const std::optional<Consent>& consent,
                    bool isAnythingLeft) {
    const std::lock_guard lock(mutex_);
    taken_ = isAnythingLeft ? taken_ : 0;
    consent_ = consent;
    for (const Accepted& item : items_) {
        const auto* const answer = std::get_if<Answer>(&item.what);
        if (consent_ && answer != nullptr) {
            (*answer)(*consent_);
        }
    }
    doneTickets_ = ticket;
    outcome_ = outcome;
    done_.notify_all();
}

void Intake::setWaker(std::function<void()> waker) {
    const std::lock_guard lock(mutex_);
    waker_ = std::move(waker);
}

void Intake::close() {
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
    waker_ = {};
    done_.notify_all();
}

QDeadlineTimer Intake::deadline() const {
    const std::lock_guard lock(mutex_);
    return deadline_;
}

void Intake::wake() {
    if (!std::exchange(isNew_, true) && waker_) {
        waker_();
    }
}

}  // namespace pellumar
