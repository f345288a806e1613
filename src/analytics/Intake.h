#pragma once

#include <QString>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <variant>
#include <vector>

#include "analytics/AnalyticsClock.h"
#include "analytics/Consent.h"
#include "analytics/Event.h"

namespace pellumar {

// The application came to the front, or left it.
struct ActivityChange {
    bool inFront = false;
};

// Something that was said and may be kept.
struct Accepted {
    Moment moment;
    std::variant<Event, UserProperty, ActivityChange> what;
};

// Where what is said comes in, from any thread, and where the consent stands: nothing stands here
// that may not be kept, as a denial empties it at once. The engine's thread takes it from here. The
// lock is held for as long as it takes to move an item.
class Intake {
  public:
    // A disk that is further behind is not going to catch up: what comes then is dropped, and
    // counted.
    static constexpr std::size_t kCapacity = 1024;
    static constexpr std::size_t kMostBytes = 1UL << 20;

    explicit Intake(Consent unread);

    // From any thread.
    void add(Accepted item);
    // Something broke a limit, and was dropped or cut.
    void noteInvalid();
    void answer(ConsentKind kind, ConsentStatus status, qint64 time);
    void pause(bool paused);
    // All that was said so far is to be forgotten, wherever it is.
    void erase();
    // Nothing as long as it has not been read what was answered in earlier processes.
    [[nodiscard]] std::optional<Consent> consent() const;

    struct Outcome {
        // All that was said before is on disk; none of it was dropped.
        bool isStored = false;
        // The consent is on disk, and what had to be erased is gone.
        bool isObeyed = false;
    };
    // Waits until the engine's thread has done what it can about everything said before.
    [[nodiscard]] Outcome waitUntilDone(std::chrono::milliseconds timeout);

    // From here on, from the engine's thread. What earlier processes were told, over which the
    // answers go that were given meanwhile; what was said under a denial is dropped.
    void learn(const Consent& kept);

    struct Work {
        // Empty as long as the consent is not known or an erasure is owed.
        std::vector<Accepted> items;
        // Beside them.
        qint64 dropped = 0;
        qint64 invalid = 0;
        std::optional<Consent> consent;
        // Grows with every erasure that is asked for.
        int erasures = 0;
        // By what was said last.
        bool isInFront = false;
        // Something has been said or asked since the last time.
        bool isNew = false;
        int ticket = 0;
        bool isComplete = true;
    };
    // Everything there is. If there is nothing, the waker is called when something comes.
    [[nodiscard]] Work take();
    // What could not be stored comes first again, unless it was to be erased meanwhile.
    void putBack(Work work);
    // As many erasures as were asked for then are done.
    void erased(int erasures);
    // `ticket` of the work that this came of.
    void done(int ticket, Outcome outcome);
    // Called by a thread that adds something when there was nothing.
    void setWaker(std::function<void()> waker);
    // Nobody takes anything any more: nobody is woken, and nobody waits.
    void close();

  private:
    void wake();
    void forget();

    mutable std::mutex mutex_;
    std::condition_variable done_;
    std::vector<Accepted> items_;
    std::size_t bytes_ = 0;
    qint64 dropped_ = 0;
    qint64 invalid_ = 0;
    bool isComplete_ = true;
    Consent consent_;
    bool isKnown_ = false;
    // Which answers were given to this process before it was known what was answered before, and
    // how much had been said by then.
    std::array<bool, kConsentKinds.size()> isAnswered_{};
    std::optional<bool> pausedUnread_;
    std::size_t saidBefore_ = 0;
    bool isInFront_ = false;
    int erasures_ = 0;
    int tickets_ = 0;
    int doneTickets_ = 0;
    Outcome outcome_;
    bool isNew_ = false;
    bool isClosed_ = false;
    std::function<void()> waker_;
};

}  // namespace pellumar
