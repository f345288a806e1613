#pragma once

#include <memory>

#include "analytics/AnalyticsEngine.h"
#include "analytics/AnalyticsEnvironment.h"
#include "platform/FIRRemoteConfig.h"
#include "settings/UserSettings.h"

namespace pellumar {

// What this application's measurement engine works with: a place in the data folder, the collector
// that is configured, if there is one, the remote parameters that are active, and the switch as it
// is now. Stops the process if there is no data folder.
[[nodiscard]] AnalyticsEnvironment measurementEnvironment(
    const UserSettings& settings,
    const std::shared_ptr<const FIRRemoteConfig>& remoteConfig);

// Has the engine follow the switch, which has changed. The switch about usage data is taken for the
// user's answer on "analytics_storage": without it, nothing is measured at all, not even what no
// event of the catalogue tells.
void followUsageSwitch(AnalyticsEngine& engine, const UserSettings& settings);

}  // namespace pellumar
