#pragma once

#include <QString>
#include <QVariantMap>
#include <cstddef>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <variant>
#include <vector>

#include "analytics/AnalyticsClock.h"
#include "analytics/ConsentState.h"

namespace pellumar {

// What callers tell the engine, as they told it.
struct LoggedEvent {
    QString name;
    QVariantMap parameters;
};
struct UserPropertyChange {
    QString name;
    QString value;
};
struct ConsentChange {
    ConsentKind kind = ConsentKind::kAdStorage;
    ConsentStatus status = ConsentStatus::kUnset;

    friend bool operator==(const ConsentChange&, const ConsentChange&) = default;
};
// The application came to the front, or left it.
struct ActivityChange {
    bool active = false;

    friend bool operator==(const ActivityChange&, const ActivityChange&) = default;
};
struct InstallationReset {};
// Is told whether everything before it is on disk.
struct Fence {
    std::shared_ptr<std::promise<bool>> stored;
};

struct QueueItem {
    Moment moment;
    // About what it takes beside itself.
    std::size_t bytes = 0;
    std::variant<LoggedEvent,
                 UserPropertyChange,
                 ActivityChange,
                 ConsentChange,
                 InstallationReset,
                 Fence>
        what;
};

// From many callers to one worker, in the order of the calls. The lock is held for as long as it
// takes to move an item, never while anything is done with one. Room is made at the start, so
// adding does not allocate.
class EventQueue {
  public:
    // More than these are not waited for: a worker that is so far behind is not going to catch up.
    static constexpr std::size_t kCapacity = 1024;
    // Nor for more than this together.
    static constexpr std::size_t kMostBytes = 1UL << 20;

    EventQueue();

    // From any thread. False if there is no room: the item is dropped, and counted unless it is a
    // fence, for which there is room for as many again. Changes of consent and activity and resets
    // always find some: beyond the capacity and the last fence, one takes the place of one that
    // says the same.
    bool add(QueueItem item);

    // From the worker: swaps `items`, which must be empty, with what has come. When nothing has,
    // the next item calls the waker.
    void take(std::vector<QueueItem>& items);

    // How many items were dropped since the last time this was called.
    [[nodiscard]] qint64 takeDropped();

    // Called under the lock, by the thread that adds, when the worker has found nothing. An empty
    // one ends that; after it has been set the former one is not called any more.
    void setWaker(std::function<void()> waker);

  private:
    [[nodiscard]] bool makeRoom(const QueueItem& item);

    std::mutex mutex_;
    std::vector<QueueItem> items_;
    std::function<void()> waker_;
    bool workerWaits_ = false;
    std::size_t bytes_ = 0;
    qint64 dropped_ = 0;
};

}  // namespace pellumar
