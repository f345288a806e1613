#pragma once

#include <memory>

#include "analytics/AnalyticsEnvironment.h"
#include "platform/FIRRemoteConfig.h"
#include "settings/UserSettings.h"

namespace pellumar {

// What this application's measurement engine works with: a place in the data folder, the collector
// that is configured, if there is one, and the remote parameters that are active. No consent is
// given or denied: the switch about usage data holds back the application's own events before they
// come here, and what the engine measures by itself is not its matter. Stops the process if there
// is no data folder.
[[nodiscard]] AnalyticsEnvironment measurementEnvironment(
    const UserSettings& settings,
    const std::shared_ptr<const FIRRemoteConfig>& remoteConfig);

}  // namespace pellumar
