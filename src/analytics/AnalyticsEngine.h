#pragma once

#include <chrono>
#include <optional>
#include <thread>

#include "analytics/AnalyticsEnvironment.h"
#include "analytics/Consent.h"
#include "analytics/Intake.h"
#include "platform/FIRAnalytics.h"
#include "platform/crashes/CrashMarker.h"

namespace pellumar {

// Measures, keeps and sends on. docs/analytics.md says what is measured, what leaves the machine
// and when.
//
// What is said to it is accepted at once and worked off in that order by a thread of its own; no
// caller ever touches the disk or the network. All operations may be called from any thread but for
// start(), stop() and the destructor, which belong to one. A QCoreApplication must exist.
class AnalyticsEngine : public FIRAnalytics {
  public:
    // Touches nothing: what is said waits for start().
    explicit AnalyticsEngine(AnalyticsEnvironment environment);
    ~AnalyticsEngine() override;
    AnalyticsEngine(const AnalyticsEngine&) = delete;
    AnalyticsEngine& operator=(const AnalyticsEngine&) = delete;

    // To be called once. Begins the thread, catches crashes if it is to, and takes the folder,
    // which it makes; as long as another process holds that, nothing is measured.
    void start();

    // Event and property are held to the limits of Event.h. They are dropped, and counted,
    // if Intake::kCapacity of them wait.
    void logEventWithName(const QString& name,
                          const std::optional<QVariantMap>& parameters) override;
    // An empty value removes the property.
    void setUserPropertyString(const QString& value, const QString& forName) override;

    // Takes effect with whatever is said after it, and outlives the process. Denial of
    // "analytics_storage" erases all that was measured, with the identifier of the installation.
    void setConsent(ConsentKind kind, ConsentStatus status);
    // Stops collecting and sending, or goes on, and outlives the process. Erases nothing.
    void setCollecting(bool collecting);
    // The consent in force, with the times of its answers; `isErasureOwed` says whether something
    // has still to be erased. Nothing as long as it has not been read.
    [[nodiscard]] std::optional<Consent> consent() const { return intake_.consent(); }

    // Gives the installation a new identifier, and erases all that was measured under the old one.
    void resetInstallation();

    // The application came to the front, or left it: sessions and engagement depend on it.
    void setActive(bool active);

    // Waits until what was said before, and may be kept, is on disk; false if it does not come to
    // that in time, or not at all. Not for the main thread.
    [[nodiscard]] bool waitUntilStored(std::chrono::milliseconds timeout) {
        return intake_.waitUntilDone(timeout).isStored;
    }
    // The same for answers and resets: they are on disk, and what they erase is gone.
    [[nodiscard]] bool waitUntilObeyed(std::chrono::milliseconds timeout) {
        return intake_.waitUntilDone(timeout).isObeyed;
    }

    // Records what was said before it, sends what can be sent in AnalyticsLoop::kLongestFarewell,
    // and ends the thread. What is said later is dropped. To be called before the QCoreApplication
    // goes.
    void stop();

  private:
    template <typename Value>
    void accept(Checked<Value> checked);

    const AnalyticsEnvironment environment_;
    Intake intake_;
    std::optional<CrashMarker> marker_;
    std::thread thread_;
};

}  // namespace pellumar
