#include "platform/desktop/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>

namespace pellumar {
namespace {

const QString kName = QStringLiteral("org.pellumar.Zip");
const QString kPath = QStringLiteral("/org/pellumar/Zip");
const QString kInterface = QStringLiteral("org.freedesktop.Application");
// Longer than a busy start takes, and short enough for somebody who waits.
constexpr int kPatienceMs = 5000;

}  // namespace

SingleInstance::Role SingleInstance::claim(const QList<QUrl>& urls) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return Role::kFirst;
    }
    // The object first: who sees the name may call at once.
    bus.registerObject(kPath, this, QDBusConnection::ExportAllSlots);
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        bus.interface()->registerService(kName,
                                         QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    if (!reply.isValid() || reply.value() == QDBusConnectionInterface::ServiceRegistered) {
        return Role::kFirst;
    }
    bus.unregisterObject(kPath);
    return forward(urls);
}

SingleInstance::Role SingleInstance::forward(const QList<QUrl>& urls) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        kName,
        kPath,
        kInterface,
        urls.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
    if (!urls.isEmpty()) {
        QStringList uris;
        for (const QUrl& url : urls) {
            uris.append(QString::fromLatin1(url.toEncoded()));
        }
        call << uris;
    }
    QVariantMap platformData;
    for (const char* name : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
        if (qEnvironmentVariableIsSet(name)) {
            const bool isToken = qstrcmp(name, "XDG_ACTIVATION_TOKEN") == 0;
            platformData.insert(
                isToken ? QStringLiteral("activation-token") : QStringLiteral("desktop-startup-id"),
                qEnvironmentVariable(name));
        }
    }
    call << platformData;
    const QDBusMessage answer = QDBusConnection::sessionBus().call(call, QDBus::Block, kPatienceMs);
    return answer.type() == QDBusMessage::ReplyMessage ? Role::kForwarded : Role::kNoAnswer;
}

void SingleInstance::Activate(const QVariantMap& platformData) {
    // Qt's Wayland platform takes the token from here when the window asks to be raised.
    const QString token = platformData.value(QStringLiteral("activation-token")).toString();
    if (!token.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    }
    emit activated();
}

void SingleInstance::Open(const QStringList& uris, const QVariantMap& platformData) {
    QList<QUrl> urls;
    for (const QString& uri : uris) {
        urls.append(QUrl::fromEncoded(uri.toUtf8()));
    }
    Activate(platformData);
    emit openRequested(urls);
}

void SingleInstance::ActivateAction(const QString& /*name*/,
                                    const QVariantList& /*parameter*/,
                                    const QVariantMap& platformData) {
    // There are no actions; the window is all that can be meant.
    Activate(platformData);
}

}  // namespace pellumar
