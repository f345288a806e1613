#include "platform/ServiceAddress.h"

#include <QtGlobal>

namespace pellumar {

QString serviceSetting(const UserDefaults& preferences, const QString& name, const char* builtIn) {
    const QByteArray variable = "PELLUMAR_" + name.toLatin1();
    if (qEnvironmentVariableIsSet(variable.constData())) {
        return qEnvironmentVariable(variable.constData()).trimmed();
    }
    const QString preferred = preferences.stringForKey(name).trimmed();
    return preferred.isEmpty() ? QString::fromUtf8(builtIn) : preferred;
}

std::optional<QUrl> serviceUrl(const QString& address, const QString& path) {
    QUrl url(address, QUrl::StrictMode);
    const bool http =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!url.isValid() || !http || url.host().isEmpty()) {
        return std::nullopt;
    }
    QString before = url.path();
    while (before.endsWith(QLatin1Char('/'))) {
        before.chop(1);
    }
    url.setPath(before + path);
    return url;
}

}  // namespace pellumar
