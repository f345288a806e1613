#pragma once

#include <gtest/gtest.h>

#include <QJsonObject>
#include <QMap>
#include <QStringList>
#include <atomic>
#include <chrono>
#include <functional>
#include <vector>

#include "analytics/AnalyticsEngine.h"
#include "analytics/MeasurementFolder.h"
#include "support/TemporaryFolder.h"
#include "support/collector/Collector.h"

namespace pellumar::test {

inline constexpr std::chrono::seconds kDeadline{30};
inline constexpr qint64 kMinute = 60'000;
inline constexpr qint64 kDay = 24LL * 60 * kMinute;
// A Wednesday in 2024, at noon in UTC.
inline constexpr qint64 kNoon = 1'705'492'800'000;

// Started at once.
class RunningEngine : public AnalyticsEngine {
  public:
    explicit RunningEngine(AnalyticsEnvironment environment)
        : AnalyticsEngine(std::move(environment)) {
        start();
    }
};

// Says the name, and waits until it is stored or nothing will come of it.
bool log(AnalyticsEngine& engine, const QString& name, int times = 1);

// Engines over one folder, with a clock that stands still until the test moves it.
class EngineTest : public testing::Test {
  protected:
    // Everything is measured, unless a test says otherwise.
    [[nodiscard]] AnalyticsEnvironment environment(
        ConsentStatus consent = ConsentStatus::kGranted) const;
    // Without the events of every start, by these remote parameters.
    [[nodiscard]] AnalyticsEnvironment quiet(QMap<QString, QString> parameters = {}) const;
    // The same, sending to `address`.
    [[nodiscard]] AnalyticsEnvironment sending(const QString& address,
                                               const QMap<QString, QString>& parameters = {}) const;

    // What stands in the store, on which an engine may work.
    [[nodiscard]] std::vector<QJsonObject> rows(const QString& table) const;
    // Of the one row of the state.
    [[nodiscard]] QJsonValue state(const QString& key) const;
    [[nodiscard]] QString installation() const { return state("installation").toString(); }
    [[nodiscard]] qint64 lost(const QString& reason) const {
        return state("losses")[reason].toInteger();
    }
    // Of an event; on a day, or ever.
    [[nodiscard]] qint64 count(const QString& name, qint64 day = -1) const;
    [[nodiscard]] QStringList names() const;
    // Without the automatic ones.
    [[nodiscard]] QStringList ownNames() const;
    // As a text; empty if the event has no such parameter.
    [[nodiscard]] static QString parameter(const QJsonObject& event, const QString& name);
    [[nodiscard]] bool isAnythingStored() const {
        return std::filesystem::exists(MeasurementFolder::storeIn(folder));
    }

    void advance(qint64 milliseconds) {
        wall += milliseconds;
        elapsed += milliseconds;
        awake += milliseconds;
    }
    void sleep(qint64 milliseconds) {
        advance(milliseconds);
        awake -= milliseconds;
    }

    // Polls; false when the deadline has passed.
    [[nodiscard]] static bool becomesTrue(const std::function<bool()>& condition);

    TemporaryFolder parent;
    std::filesystem::path folder = parent / "analytics";
    std::atomic<qint64> wall = kNoon;
    std::atomic<qint64> elapsed = 1000;
    std::atomic<qint64> awake = 1000;
};

}  // namespace pellumar::test
