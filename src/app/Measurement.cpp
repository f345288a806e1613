#include "app/Measurement.h"

#include <QCoreApplication>

#include "analytics/CollectorEndpoint.h"
#include "analytics/HttpTransport.h"
#include "platform/DocumentDirectory.h"

namespace pellumar {

AnalyticsEnvironment measurementEnvironment(
    const UserSettings& settings,
    const std::shared_ptr<const FIRRemoteConfig>& remoteConfig) {
    const auto folder = DocumentDirectory::inDataFolder("Analytics");
    if (!folder) {
        qFatal("There is no data folder to measure in");
    }
    AnalyticsEnvironment environment;
    environment.folder = *folder;
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
