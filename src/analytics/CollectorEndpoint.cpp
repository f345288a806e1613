#include "analytics/CollectorEndpoint.h"

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

CollectorEndpoint CollectorEndpoint::configured(const UserDefaults& preferences) {
    return {
        .address = find(preferences, QStringLiteral("ANALYTICS_URL"), BUILT_IN_URL),
        .bearerToken = find(preferences, QStringLiteral("ANALYTICS_TOKEN"), BUILT_IN_TOKEN),
    };
}

std::optional<QUrl> CollectorEndpoint::logsUrl() const {
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
    url.setPath(path + QStringLiteral("/v1/logs"));
    return url;
}

}  // namespace pellumar
