#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <atomic>
#include <memory>
#include <vector>

#include "analytics/AnalyticsEngine.h"
#include "analytics/HttpTransport.h"
#include "support/TemporaryFolder.h"
#include "support/collector/Collector.h"

namespace pellumar::test {

inline constexpr std::chrono::seconds kDeadline{30};
inline constexpr qint64 kMinute = 60'000;
inline constexpr qint64 kDay = 24 * 60 * kMinute;
// A Wednesday in 2024, at noon in UTC.
inline constexpr qint64 kNoon = 1'705'492'800'000;

// Stands still until a test moves it; local time is UTC.
class ManualClock : public AnalyticsClock {
  public:
    [[nodiscard]] Moment now() const override { return {.wall = wall_, .elapsed = elapsed_}; }
    [[nodiscard]] qint64 utcOffset(qint64 /*wall*/) const override { return 0; }

    void advance(qint64 milliseconds) {
        wall_ += milliseconds;
        elapsed_ += milliseconds;
    }
    // Somebody sets the clock.
    void setAhead(qint64 milliseconds) { wall_ += milliseconds; }

  private:
    std::atomic<qint64> wall_ = kNoon;
    std::atomic<qint64> elapsed_ = 1000;
};

// What stands in the store of a folder that no engine works on.
[[nodiscard]] std::vector<StoredEvent> storedEvents(const std::filesystem::path& folder);
[[nodiscard]] QStringList namesOf(const std::vector<StoredEvent>& events);
// Without the automatic ones.
[[nodiscard]] QStringList ownNames(const std::filesystem::path& folder);
// An empty value if the event has no such parameter.
[[nodiscard]] ParameterValue parameterOf(const StoredEvent& event, const QString& name);

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
        environment.idle = std::chrono::milliseconds(0);
        return environment;
    }
    // Sends to `address`.
    [[nodiscard]] AnalyticsEnvironment sending(const QString& address) const {
        AnalyticsEnvironment with = environment();
        with.transport = HttpTransport::maker({.address = address, .bearerToken = {}});
        return with;
    }

    TemporaryFolder parent;
    std::filesystem::path folder = parent / "analytics";
    std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
};

}  // namespace pellumar::test
