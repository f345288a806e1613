#pragma once

#include <QDeadlineTimer>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <variant>
#include <vector>

#include "analytics/Consent.h"
#include "analytics/Event.h"
#include "analytics/Moment.h"

namespace pellumar {

// The application came to the front, or left it.
struct ActivityChange {
    bool inFront = false;
};

// What somebody has answered.
using Answer = std::function<void(Consent&)>;

// Something that was said.
struct Accepted {
    Moment moment;
    std::variant<Event, UserProperty, ActivityChange, Answer> what;
};

// Where what is said comes in, from any thread, and waits in its order for the engine's thread.
// What comes while the consent forbids it is dropped here. The lock is held for as long as it takes
// to move an item.
class Intake {
  public:
    // Of what is not stored yet. A disk that is further behind is not going to catch up: what comes
    // then is dropped, and counted. Answers are not.
    static constexpr std::size_t kCapacity = 1024;

    // From any thread, these.
    void add(Accepted&& item);
    // Something broke a limit, and was dropped or cut.
    void noteInvalid();
    void answer(const Answer& answer);
    // With all that was answered so far. Nothing as long as it has not been read what was answered
    // in earlier processes.
    [[nodiscard]] std::optional<Consent> consent() const;

    struct Outcome {
        // All that was said before, and may be kept, is on disk.
        bool isStored = false;
        // The consent is on disk, and what had to be erased is gone.
        bool isObeyed = false;
    };
    // Waits until the engine's thread has done what it can about everything said before.
    [[nodiscard]] Outcome waitUntilDone(std::chrono::milliseconds timeout);
    // What is said later is dropped. Who is in front leaves it. `timeout` is how long the engine's
    // thread may take to say farewell.
    void end(const Moment& now, std::chrono::milliseconds timeout);

    // From the engine's thread, these.
    struct Work {
        std::vector<Accepted> items;
        // Beside them.
        qint64 dropped = 0;
        qint64 invalid = 0;
        // By what was said last.
        bool isInFront = false;
        int ticket = 0;
        // Something has been said or asked since the last time.
        bool isNew = false;
    };
    // Everything there is. The waker is called when more comes.
    [[nodiscard]] Work take();
    // What was taken up to a ticket is done, but for what waits still, and came to this consent if
    // it is known by now.
    void finish(int ticket,
                const Outcome& outcome,
                const std::optional<Consent>& consent,
                bool isAnythingLeft);
    // Called by a thread that says something when there was nothing.
    void setWaker(std::function<void()> waker);
    // Nothing is taken any more: nobody is woken, and nobody waits.
    void close();
    // Forever as long as the end has not come.
    [[nodiscard]] QDeadlineTimer deadline() const;

  private:
    void put(Accepted&& item);
    void wake();

    mutable std::mutex mutex_;
    std::condition_variable done_;
    std::vector<Accepted> items_;
    // So many more are worked on.
    std::size_t taken_ = 0;
    qint64 dropped_ = 0;
    qint64 invalid_ = 0;
    std::optional<Consent> consent_;
    bool isInFront_ = false;
    int tickets_ = 0;
    int doneTickets_ = 0;
    Outcome outcome_;
    bool isNew_ = false;
    bool isClosed_ = false;
    QDeadlineTimer deadline_{QDeadlineTimer::Forever};
    std::function<void()> waker_;
};

}  // namespace pellumar
