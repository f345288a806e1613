#pragma once

#include <gtest/gtest.h>

#include <QJsonObject>
#include <QMap>
#include <QStringList>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "analytics/AnalyticsEngine.h"
#include "analytics/HttpTransport.h"
#include "analytics/MeasurementFolder.h"
#include "support/TemporaryFolder.h"
#include "support/collector/Collector.h"

namespace pellumar::test {

inline constexpr std::chrono::seconds kDeadline{30};
inline constexpr qint64 kMinute = 60'000;
inline constexpr qint64 kDay = 24LL * 60 * kMinute;
// A Wednesday in 2024, at noon in UTC.
inline constexpr qint64 kNoon = 1'705'492'800'000;

// Stands still until a test moves it; local time is UTC.
class ManualClock : public AnalyticsClock {
  public:
    [[nodiscard]] Moment now() const override {
        return {.wall = wall_, .elapsed = elapsed_, .awake = elapsed_ - slept_};
    }
    [[nodiscard]] qint64 utcOffset(qint64 /*wall*/) const override { return 0; }

    void advance(qint64 milliseconds) {
        wall_ += milliseconds;
        elapsed_ += milliseconds;
    }
    // The machine sleeps.
    void sleep(qint64 milliseconds) {
        slept_ += milliseconds;
        advance(milliseconds);
    }
    // Somebody sets the clock.
    void setAhead(qint64 milliseconds) { wall_ += milliseconds; }

  private:
    std::atomic<qint64> wall_ = kNoon;
    std::atomic<qint64> elapsed_ = 1000;
    std::atomic<qint64> slept_ = 0;
};

// Started at once.
class RunningEngine : public AnalyticsEngine {
  public:
    explicit RunningEngine(AnalyticsEnvironment environment)
        : AnalyticsEngine(std::move(environment)) {
        start();
    }
};

// What stands in the store of a folder, which an engine may work on.
[[nodiscard]] std::vector<QJsonObject> storedRows(const std::filesystem::path& folder,
                                                  const QString& table);
[[nodiscard]] std::vector<StoredEvent> storedEvents(const std::filesystem::path& folder);
[[nodiscard]] QStringList namesOf(const std::vector<StoredEvent>& events);
// Without the automatic ones.
[[nodiscard]] QStringList ownNames(const std::filesystem::path& folder);
// As a text; empty if the event has no such parameter.
[[nodiscard]] QString parameterOf(const StoredEvent& event, const QString& name);
// Of a folder that no engine works on.
[[nodiscard]] std::unique_ptr<AnalyticsStore> openStore(const std::filesystem::path& folder);

// Engines over one folder, with a clock that the test moves.
class EngineTest : public testing::Test {
  protected:
    [[nodiscard]] AnalyticsEnvironment environment() const {
        AnalyticsEnvironment environment;
        environment.folder = folder;
        environment.versions = {.serviceName = "test",
                                .serviceVersion = "1.0",
                                .osType = "linux",
                                .osVersion = "Debian 12"};
        environment.clock = clock;
        // Unless a test says otherwise, everything is measured.
        environment.consent = ConsentStatus::kGranted;
        environment.idle = std::chrono::milliseconds(0);
        return environment;
    }
    // Without the events of every start.
    [[nodiscard]] AnalyticsEnvironment quiet(QMap<QString, QString> parameters = {}) const {
        parameters.insert("measurement_blocked_events", "pz_first_open,pz_session_start");
        return configured(parameters);
    }
    [[nodiscard]] AnalyticsEnvironment configured(const QMap<QString, QString>& parameters) const {
        AnalyticsEnvironment with = environment();
        with.parameters = [parameters](const QString& key) { return parameters.value(key); };
        return with;
    }
    // Sends to `address`.
    [[nodiscard]] static AnalyticsEnvironment sending(const QString& address,
                                                      AnalyticsEnvironment environment) {
        environment.transport = HttpTransport::maker(address, {});
        return environment;
    }
    // Polls; false when the deadline has passed.
    [[nodiscard]] static bool becomesTrue(const std::function<bool()>& condition) {
        const auto deadline = std::chrono::steady_clock::now() + kDeadline;
        while (!condition() && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return condition();
    }

    TemporaryFolder parent;
    std::filesystem::path folder = parent / "analytics";
    std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
};

}  // namespace pellumar::test
