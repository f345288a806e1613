#pragma once

#include <QByteArray>
#include <memory>
#include <optional>

#include "analytics/AnalyticsEnvironment.h"
#include "platform/FIRRemoteConfig.h"
#include "settings/UserSettings.h"

namespace pellumar {

// What this application's measurement engine works with: a place in the data folder, and from the
// environment, the preferences or the build (serviceSetting) the collector as ANALYTICS_URL and
// ANALYTICS_TOKEN and the deployer's word on "analytics_storage" as ANALYTICS_CONSENT; and the
// remote parameters that are active. The application itself answers no question of consent. Stops
// the process if there is no data folder.
[[nodiscard]] AnalyticsEnvironment measurementEnvironment(
    const UserSettings& settings,
    const std::shared_ptr<const FIRRemoteConfig>& remoteConfig);

// What is kept of the measurements: JSON Lines, an object for each row, and the answers about
// consent first. Nothing if it cannot be read. From any thread.
[[nodiscard]] std::optional<QByteArray> usageData();

// Writes that into a file, or to the standard output as "-". The exit code, 1 if that failed.
[[nodiscard]] int exportUsageData(const QString& file);

}  // namespace pellumar
