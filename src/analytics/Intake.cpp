#include "analytics/Intake.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace pellumar {
namespace {

std::size_t bytesOf(const QString& text) {
    constexpr qsizetype kHeader = 24;
    return static_cast<std::size_t>(kHeader + text.size() * qsizetype{sizeof(QChar)});
}

// About what it takes beside itself.
std::size_t bytesOf(const Accepted& item) {
    std::size_t bytes = 0;
    if (const auto* const event = std::get_if<Event>(&item.what)) {
        bytes = bytesOf(event->name) + event->parameters.size() * sizeof(EventParameter);
        for (const EventParameter& parameter : event->parameters) {
            const auto* const text = std::get_if<QString>(&parameter.value);
            bytes += bytesOf(parameter.name) + (text != nullptr ? bytesOf(*text) : 0);
        }
    } else if (const auto* const property = std::get_if<UserProperty>(&item.what)) {
        bytes = bytesOf(property->name) + bytesOf(property->value);
    }
    return bytes;
}

bool isActivity(const Accepted& item) {
    return std::holds_alternative<ActivityChange>(item.what);
}

}  // namespace

Intake::Intake(Consent unread) : consent_(unread) {
    items_.reserve(kCapacity);
}

void Intake::add(Accepted item) {
    const std::size_t bytes = bytesOf(item);
    const std::lock_guard lock(mutex_);
    if (const auto* const change = std::get_if<ActivityChange>(&item.what)) {
        isInFront_ = change->inFront;
    }
    if (!consent_.mayKeep()) {
        isComplete_ = isComplete_ && isActivity(item);
        return;
    }
    if (items_.size() < kCapacity && bytes_ + bytes <= kMostBytes) {
        bytes_ += bytes;
        items_.push_back(std::move(item));
    } else if (!isActivity(item)) {
        ++dropped_;
        isComplete_ = false;
    } else if (!items_.empty() && isActivity(items_.back())) {
        // The last word counts.
        items_.back() = std::move(item);
    } else {
        items_.push_back(std::move(item));
    }
    wake();
}

void Intake::noteInvalid() {
    const std::lock_guard lock(mutex_);
    invalid_ += consent_.mayKeep() ? 1 : 0;
}

void Intake::answer(ConsentKind kind, ConsentStatus status, qint64 time) {
    const std::lock_guard lock(mutex_);
    consent_.set(kind, status, time);
    isAnswered_.at(static_cast<std::size_t>(kind)) = true;
    if (kind == ConsentKind::kAnalyticsStorage) {
        saidBefore_ = items_.size();
        if (!consent_.allowsStorage()) {
            forget();
        }
    }
    wake();
}

void Intake::pause(bool paused) {
    const std::lock_guard lock(mutex_);
    consent_.isPaused = paused;
    pausedUnread_ = paused;
    wake();
}

void Intake::erase() {
    const std::lock_guard lock(mutex_);
    forget();
    wake();
}

void Intake::forget() {
    items_.clear();
    bytes_ = 0;
    dropped_ = 0;
    invalid_ = 0;
    saidBefore_ = 0;
    ++erasures_;
    consent_.isErasureOwed = true;
}

std::optional<Consent> Intake::consent() const {
    const std::lock_guard lock(mutex_);
    return isKnown_ ? std::optional(consent_) : std::nullopt;
}

Intake::Outcome Intake::waitUntilDone(std::chrono::milliseconds timeout) {
    std::unique_lock lock(mutex_);
    const int ticket = ++tickets_;
    wake();
    done_.wait_for(lock, timeout, [&] { return isClosed_ || doneTickets_ >= ticket; });
    return doneTickets_ >= ticket ? outcome_ : Outcome{};
}

void Intake::learn(const Consent& kept) {
    const std::lock_guard lock(mutex_);
    const Consent given = std::exchange(consent_, kept);
    for (const ConsentKind kind : kConsentKinds) {
        if (isAnswered_.at(static_cast<std::size_t>(kind))) {
            consent_.set(kind, given.answer(kind).status, given.answer(kind).time.value_or(0));
        }
    }
    consent_.isPaused = pausedUnread_.value_or(kept.isPaused);
    consent_.isErasureOwed = kept.isErasureOwed || given.isErasureOwed;
    isKnown_ = true;
    if (!consent_.allowsStorage()) {
        forget();
    } else if (!kept.mayKeep()) {
        // Said under it; what was said after another answer stays.
        const std::size_t forbidden = kept.allowsStorage() ? 0 : saidBefore_;
        items_.erase(items_.begin(), items_.begin() + static_cast<std::ptrdiff_t>(forbidden));
        if (!consent_.mayKeep()) {
            items_.clear();
        }
    }
    if (consent_.isErasureOwed && erasures_ == 0) {
        ++erasures_;
    }
}

Intake::Work Intake::take() {
    Work work;
    work.items.reserve(kCapacity);
    const std::lock_guard lock(mutex_);
    work.isNew = std::exchange(isNew_, false);
    work.ticket = tickets_;
    work.erasures = erasures_;
    work.isInFront = isInFront_;
    if (isKnown_) {
        work.consent = consent_;
    }
    if (isKnown_ && !consent_.isErasureOwed) {
        work.items.swap(items_);
        bytes_ = 0;
        work.dropped = std::exchange(dropped_, 0);
        work.invalid = std::exchange(invalid_, 0);
    }
    work.isComplete = std::exchange(isComplete_, true);
    return work;
}

void Intake::putBack(Work work) {
    const std::lock_guard lock(mutex_);
    isComplete_ = isComplete_ && work.isComplete;
    if (work.erasures != erasures_) {
        return;
    }
    dropped_ += work.dropped;
    invalid_ += work.invalid;
    std::move(items_.begin(), items_.end(), std::back_inserter(work.items));
    items_ = std::move(work.items);
    bytes_ = 0;
    std::size_t kept = 0;
    while (kept < std::min(items_.size(), kCapacity) &&
           bytes_ + bytesOf(items_[kept]) <= kMostBytes) {
        bytes_ += bytesOf(items_[kept++]);
    }
    if (kept < items_.size()) {
        dropped_ += static_cast<qint64>(items_.size() - kept);
        isComplete_ = false;
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(kept), items_.end());
    }
}

void Intake::erased(int erasures) {
    const std::lock_guard lock(mutex_);
    if (erasures == erasures_) {
        consent_.isErasureOwed = false;
    }
}

void Intake::done(int ticket, Outcome outcome) {
    const std::lock_guard lock(mutex_);
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

void Intake::wake() {
    if (!std::exchange(isNew_, true) && waker_) {
        waker_();
    }
}

}  // namespace pellumar
