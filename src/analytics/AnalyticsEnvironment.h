#pragma once

#include <QString>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "analytics/AnalyticsClock.h"
#include "analytics/AnalyticsStore.h"
#include "analytics/Audience.h"
#include "analytics/LogTransport.h"
#include "analytics/MeasurementConfig.h"
#include "analytics/ProductVersions.h"

namespace pellumar {

// All that the engine has from outside. Functions are called on the engine's thread.
struct AnalyticsEnvironment {
    // For the engine alone. Made when something is to be kept.
    std::filesystem::path folder;
    ProductVersions versions;
    // Makes the way to the collector; empty: nothing leaves the machine.
    std::function<std::unique_ptr<LogTransport>()> transport;
    // Asked for before a piece of work; empty: everything is as it is by default.
    MeasurementParameters parameters;
    std::vector<Audience> audiences;
    // The user came into an audience or left it, and that is kept.
    std::function<void(const QString& audience, bool member)> audienceChanged;
    std::shared_ptr<const AnalyticsClock> clock = std::make_shared<SystemClock>();
    // How long nothing has to be said before something is sent.
    std::chrono::milliseconds idle{2000};
    qint64 mostBytes = AnalyticsStore::kMostBytes;
};

}  // namespace pellumar
