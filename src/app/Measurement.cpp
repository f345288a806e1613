#include "app/Measurement.h"

#include <QCoreApplication>

#include "analytics/CollectorEndpoint.h"
#include "analytics/HttpTransport.h"
#include "platform/UserFolders.h"

namespace pellumar {

AnalyticsEnvironment measurementEnvironment(
    const UserSettings& settings,
    const std::shared_ptr<const FIRRemoteConfig>& remoteConfig) {
    AnalyticsEnvironment environment;
    environment.folder = UserFolders::data("Analytics");
    environment.versions = ProductVersions::ofThisSystem(QCoreApplication::applicationName(),
                                                         QCoreApplication::applicationVersion());
    environment.transport =
        HttpTransport::maker(CollectorEndpoint::configured(settings.userDefaults()));
    environment.parameters = [remoteConfig](const QString& key) {
        return remoteConfig->objectForKeyedSubscript(key).stringValue.value_or(QString());
    };
    return environment;
}

}  // namespace pellumar
