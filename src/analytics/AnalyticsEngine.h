#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <stop_token>
#include <thread>

#include "analytics/AnalyticsEnvironment.h"
#include "analytics/ConsentState.h"
#include "analytics/CrashMarker.h"
#include "analytics/EventQueue.h"
#include "platform/FIRAnalytics.h"

namespace pellumar {

// Measures, keeps and sends on. docs/analytics.md says what is measured, what leaves the machine
// and when.
//
// What is said to it goes into a queue and is worked off in that order by a thread of its own; no
// caller ever touches the disk or the network. All operations may be called from any thread but for
// the constructor, stop() and the destructor, which belong to one. A QCoreApplication must exist.
class AnalyticsEngine : public FIRAnalytics {
  public:
    enum class CrashCatching { kOff, kOn };

    // Starts. Only one engine in a process may catch crashes, and it should be made by the main
    // thread.
    explicit AnalyticsEngine(AnalyticsEnvironment environment,
                             CrashCatching crashes = CrashCatching::kOff);
    ~AnalyticsEngine() override;
    AnalyticsEngine(const AnalyticsEngine&) = delete;
    AnalyticsEngine& operator=(const AnalyticsEngine&) = delete;

    // Event and property are held to the limits of EventValidator.h. They are dropped, and counted,
    // if the thread is EventQueue::kCapacity items behind.
    void logEventWithName(const QString& name,
                          const std::optional<QVariantMap>& parameters) override;
    // An empty value removes the property.
    void setUserPropertyString(const QString& value, const QString& forName) override;

    // Takes effect with whatever is said after it, and outlives the process. Denial of
    // "analytics_storage" erases all that was measured, with the identifier of the installation.
    void setConsent(ConsentKind kind, ConsentStatus status);

    // Gives the installation a new identifier, and erases all that was measured under the old one.
    void resetInstallation();

    // The application came to the front, or left it: sessions and engagement depend on it.
    void setActive(bool active);

    // Waits until everything said before is on disk; false if it does not come to that in time,
    // or not at all. Not for the main thread.
    [[nodiscard]] bool waitUntilStored(std::chrono::milliseconds timeout);

    // Records what was said before it, sends what can be sent in AnalyticsWorker::kLongestFarewell,
    // and ends the thread. What is said later is dropped. To be called before the QCoreApplication
    // goes.
    void stop();

  private:
    // `bytes`: about what it takes beside itself. False if there was no room for it.
    bool say(decltype(QueueItem::what) what, std::size_t bytes = 0);

    const std::shared_ptr<const AnalyticsClock> clock_;
    EventQueue queue_;
    std::optional<CrashMarker> marker_;
    std::stop_source stop_;
    std::thread thread_;
};

}  // namespace pellumar
