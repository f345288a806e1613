#include "platform/desktop/SingleInstance.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDeadlineTimer>
#include <algorithm>

namespace pellumar {
namespace {

const QString kName = QStringLiteral("org.pellumar.Zip");
const QString kApplicationPath = QStringLiteral("/org/pellumar/Zip");
const QString kApplicationInterface = QStringLiteral("org.freedesktop.Application");

// What a start passes on so that the window of another process may come to the front.
QVariantMap platformData() {
    QVariantMap data;
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    if (!token.isEmpty()) {
        data.insert(QStringLiteral("activation-token"), token);
    }
    const QString startupId = qEnvironmentVariable("DESKTOP_STARTUP_ID");
    if (!startupId.isEmpty()) {
        data.insert(QStringLiteral("desktop-startup-id"), startupId);
    }
    return data;
}

QDBusMessage callFor(const QList<QUrl>& urls) {
    const QString member = urls.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open");
    QDBusMessage call =
        QDBusMessage::createMethodCall(kName, kApplicationPath, kApplicationInterface, member);
    // The owner is meant, not one that the bus would start in its place.
    call.setAutoStartService(false);
    if (!urls.isEmpty()) {
        QStringList uris;
        for (const QUrl& url : urls) {
            uris.append(QString::fromLatin1(url.toEncoded()));
        }
        call << uris;
    }
    call << platformData();
    return call;
}

// Whether an error is that of an owner who ended before the call or during it, or was about to. One
// who is silent gives the same as one who ends during the call, but late.
bool mayBeGone(const QDBusMessage& answer) {
    const QDBusError::ErrorType type = QDBusError(answer).type();
    return type == QDBusError::ServiceUnknown || type == QDBusError::NoReply ||
           type == QDBusError::UnknownObject;
}

}  // namespace

bool SingleInstance::takeName() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    // The object first: who sees the name may call at once.
    bus.registerObject(kApplicationPath, this, QDBusConnection::ExportAllSlots);
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        bus.interface()->registerService(kName,
                                         QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    const bool isTaken =
        !reply.isValid() || reply.value() == QDBusConnectionInterface::ServiceRegistered;
    if (!isTaken) {
        bus.unregisterObject(kApplicationPath);
    }
    return isTaken;
}

SingleInstance::Role SingleInstance::claim(const QList<QUrl>& urls) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return Role::kFirst;
    }
    const QDeadlineTimer deadline(patience_);
    do {
        if (takeName()) {
            return Role::kFirst;
        }
        const int patience = static_cast<int>(std::max<qint64>(1, deadline.remainingTime()));
        const QDBusMessage answer = bus.call(callFor(urls), QDBus::Block, patience);
        if (answer.type() == QDBusMessage::ReplyMessage) {
            return Role::kForwarded;
        }
        if (!mayBeGone(answer)) {
            return Role::kNoAnswer;
        }
    } while (!deadline.hasExpired());
    return Role::kNoAnswer;
}

QList<QUrl> SingleInstance::takeWaiting(bool isExpected) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return {};
    }
    QList<QUrl> waiting;
    const auto collection =
        QObject::connect(this, &SingleInstance::openRequested, [&waiting](const QList<QUrl>& urls) {
            waiting.append(urls);
        });
    // Calls are held back until events are looked at for the first time.
    QCoreApplication::processEvents();
    // What the bus sends comes in order: when this is answered, the calls before it are here.
    static_cast<void>(bus.interface()->call(QStringLiteral("GetId")));
    QCoreApplication::processEvents();
    const QDeadlineTimer deadline(patience_);
    while (isExpected && !isCalled_ && !deadline.hasExpired()) {
        constexpr int kTurnMs = 10;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, kTurnMs);
    }
    QObject::disconnect(collection);
    return waiting;
}

void SingleInstance::release() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        bus.interface()->unregisterService(kName);
        bus.unregisterObject(kApplicationPath);
    }
}

void SingleInstance::Activate(const QVariantMap& platformData) {
    isCalled_ = true;
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
