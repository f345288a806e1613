#pragma once

#include <QString>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "analytics/AnalyticsStore.h"
#include "analytics/Audiences.h"
#include "analytics/Consent.h"
#include "analytics/HttpTransport.h"
#include "analytics/MeasurementConfig.h"
#include "analytics/Moment.h"

namespace pellumar {

// What is measured, and on what.
struct ProductVersions {
    QString serviceName;
    QString serviceVersion;
    // "linux".
    QString osType;
    // "Debian GNU/Linux 12", as a person would say it.
    QString osVersion;
};

// All that the engine has from outside. Functions are called on the engine's thread.
struct AnalyticsEnvironment {
    // For the engine alone. Made when it starts.
    std::filesystem::path folder;
    ProductVersions versions;
    // "analytics_storage" as long as nobody has answered.
    ConsentStatus consent = ConsentStatus::kUnset;
    // Makes the way to the collector; empty: nothing leaves the machine.
    std::function<std::unique_ptr<HttpTransport>()> transport;
    // Asked for once a minute at most; empty: everything is as it is by default.
    MeasurementParameters parameters;
    std::vector<Audience> audiences;
    // Only one engine in a process may, and it should be started by the main thread.
    bool catchesCrashes = false;
    // From any thread.
    std::function<Moment()> now = Moment::now;
    // How long nothing has to be said before something is sent.
    std::chrono::milliseconds idle{2000};
    qint64 mostBytes = AnalyticsStore::kMostBytes;
};

// What the piece of work at hand goes by.
struct Rules {
    Consent consent;
    MeasurementConfig config;
};

}  // namespace pellumar
