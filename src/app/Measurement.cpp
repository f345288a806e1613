#include "app/Measurement.h"

#include <QCoreApplication>

#include "analytics/CollectorEndpoint.h"
#include "analytics/HttpTransport.h"
#include "platform/DocumentDirectory.h"

namespace pellumar {

namespace {

ConsentStatus answerOf(const UserSettings& settings) {
    return settings.userDefaults().boolForKey(settings.sendUsageDataKey()) ? ConsentStatus::kGranted
                                                                           : ConsentStatus::kDenied;
}

}  // namespace

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
    environment.storageConsent = answerOf(settings);
    environment.parameters = [remoteConfig](const QString& key) {
        return remoteConfig->objectForKeyedSubscript(key).stringValue.value_or(QString());
    };
    return environment;
}

void followUsageSwitch(AnalyticsEngine& engine, const UserSettings& settings) {
    engine.setConsent(ConsentKind::kAnalyticsStorage, answerOf(settings));
}

}  // namespace pellumar
