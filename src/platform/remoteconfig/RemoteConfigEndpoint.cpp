#include "platform/remoteconfig/RemoteConfigEndpoint.h"

#include <QtGlobal>

namespace pellumar {
namespace {

QString find(const UserDefaults& preferences, const QString& name, const char* builtIn) {
    const QByteArray variable = "PELLUMAR_" + name.toLatin1();
    if (qEnvironmentVariableIsSet(variable.constData())) {
        return qEnvironmentVariable(variable.constData()).trimmed();
    }
    const QString preferred = preferences.stringForKey(name).trimmed();
    return preferred.isEmpty() ? QString::fromUtf8(builtIn) : preferred;
}

}  // namespace

RemoteConfigEndpoint RemoteConfigEndpoint::configured(const UserDefaults& preferences) {
    return {
        .address = find(preferences, QStringLiteral("REMOTE_CONFIG_URL"), BUILT_IN_URL),
        .bearerToken = find(preferences, QStringLiteral("REMOTE_CONFIG_TOKEN"), BUILT_IN_TOKEN),
        .apiKey = find(preferences, QStringLiteral("REMOTE_CONFIG_API_KEY"), BUILT_IN_API_KEY),
    };
}

std::optional<QUrl> RemoteConfigEndpoint::evaluationUrl() const {
    QUrl url(address, QUrl::StrictMode);
    const bool http =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!url.isValid() || !http || url.host().isEmpty()) {
        return std::nullopt;
    }
    QString path = url.path();
    while (path.endsWith(QLatin1Char('/'))) {
        path.chop(1);
    }
    url.setPath(path + QStringLiteral("/ofrep/v1/evaluate/flags"));
    return url;
}

}  // namespace pellumar
