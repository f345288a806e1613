#include "app/Services.h"

#include <utility>

#include "app/Measurement.h"
#include "platform/UserFolders.h"

namespace pellumar {
std::unique_ptr<Services> Services::start(const UserSettings& settings, Console& console) {
    const auto remoteConfig = std::make_shared<RemoteConfigService>(
        RemoteConfigService::Options{
            .folder = UserFolders::data("RemoteConfig"),
            .endpoint = RemoteConfigEndpoint::configured(settings.userDefaults())},
        console);
    remoteConfig->start();
    const auto measurement =
        std::make_shared<AnalyticsEngine>(measurementEnvironment(settings, remoteConfig));
    measurement->start();
    return std::unique_ptr<Services>(new Services(settings, remoteConfig, measurement));
}

Services::Services(const UserSettings& settings,
                   std::shared_ptr<RemoteConfigService> remoteConfig,
                   std::shared_ptr<AnalyticsEngine> measurement)
    : remoteConfig_(std::move(remoteConfig)),
      measurement_(std::move(measurement)),
      analytics_(settings, *measurement_) {}

Services::~Services() {
    stop();
}

void Services::stop() {
    remoteConfig_->stop();
    measurement_->stop();
}

}  // namespace pellumar
