#include "app/Measurement.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>
#include <cstdio>

#include "analytics/AnalyticsStore.h"
#include "analytics/HttpTransport.h"
#include "analytics/MeasurementFolder.h"
#include "platform/ServiceAddress.h"
#include "platform/UserFolders.h"

namespace pellumar {
namespace {

std::filesystem::path measurementFolder() {
    return UserFolders::data("Analytics");
}

}  // namespace

AnalyticsEnvironment measurementEnvironment(
    const UserSettings& settings,
    const std::shared_ptr<const FIRRemoteConfig>& remoteConfig) {
    const auto configured = [&](const char* name, const char* builtIn) {
        return serviceSetting(settings.userDefaults(), QLatin1String(name), builtIn);
    };
    AnalyticsEnvironment environment;
    environment.folder = measurementFolder();
    environment.versions = {.serviceName = QCoreApplication::applicationName(),
                            .serviceVersion = QCoreApplication::applicationVersion(),
                            .osType = QSysInfo::kernelType(),
                            .osVersion = QSysInfo::prettyProductName()};
    environment.consent = consentStatusOf(configured("ANALYTICS_CONSENT", BUILT_IN_CONSENT));
    environment.transport = HttpTransport::maker(configured("ANALYTICS_URL", BUILT_IN_URL),
                                                 configured("ANALYTICS_TOKEN", BUILT_IN_TOKEN));
    environment.parameters = [remoteConfig](const QString& key) {
        return remoteConfig->objectForKeyedSubscript(key).stringValue.value_or(QString());
    };
    environment.catchesCrashes = true;
    return environment;
}

std::optional<QByteArray> usageData() {
    const std::filesystem::path folder = measurementFolder();
    const std::optional<QByteArray> consent = MeasurementFolder(folder).readConsent();
    const std::optional<QByteArray> lines = AnalyticsStore::jsonLines(folder);
    if (!consent || !lines) {
        return std::nullopt;
    }
    QJsonObject answers = QJsonDocument::fromJson(*consent).object();
    answers.insert("table", "consent");
    return QJsonDocument(answers).toJson(QJsonDocument::Compact) + '\n' + *lines;
}

int exportUsageData(const QString& file) {
    if (const std::optional<std::string> reason = UserFolders::whyMissing()) {
        std::fprintf(stderr, "pellumar-zip: %s\n", reason->c_str());
        return 1;
    }
    const std::optional<QByteArray> all = usageData();
    if (!all) {
        std::fputs("pellumar-zip: the usage data cannot be read\n", stderr);
        return 1;
    }
    QFile output(file);
    const bool isOpen = file == u"-" ? output.open(stdout, QIODevice::WriteOnly)
                                     : output.open(QIODevice::WriteOnly | QIODevice::Truncate);
    if (!isOpen || output.write(*all) != all->size() || !output.flush()) {
        std::fputs("pellumar-zip: the usage data cannot be written\n", stderr);
        return 1;
    }
    return 0;
}

}  // namespace pellumar
