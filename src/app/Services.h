#pragma once

#include <memory>

#include "analytics/AnalyticsEngine.h"
#include "events/PellumarAnalytics.h"
#include "platform/Console.h"
#include "platform/FIRApp.h"
#include "platform/remoteconfig/RemoteConfigService.h"
#include "settings/UserSettings.h"

namespace pellumar {

// What FIRApp makes known in this process: measurement with its crash reports, and remote
// configuration. Both run until stop(). For the main thread.
class Services {
  public:
    // Starts everything. Both must outlive what is returned.
    [[nodiscard]] static std::unique_ptr<Services> start(const UserSettings& settings,
                                                         Console& console);
    ~Services();
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    [[nodiscard]] FIRApp::Services shared() const { return {measurement_, remoteConfig_}; }
    // What the application reports through.
    [[nodiscard]] const PellumarAnalytics& analytics() const { return analytics_; }

    // The application came to the front, or left it.
    void setActive(bool active) { measurement_->setActive(active); }

    // Ends all that runs; what is said later is lost. To be called before the QCoreApplication
    // goes.
    void stop();

  private:
    Services(const UserSettings& settings,
             std::shared_ptr<RemoteConfigService> remoteConfig,
             std::shared_ptr<AnalyticsEngine> measurement);

    const std::shared_ptr<RemoteConfigService> remoteConfig_;
    const std::shared_ptr<AnalyticsEngine> measurement_;
    const PellumarAnalytics analytics_;
};

}  // namespace pellumar
