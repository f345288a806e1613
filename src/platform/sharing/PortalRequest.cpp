#include "platform/sharing/PortalRequest.h"

#include <fcntl.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QUuid>

#include "platform/FileUrl.h"

namespace pellumar {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");
// The portal's response: 1 is cancelled by the user, 2 ended in another way.
constexpr uint kSuccess = 0;

}  // namespace

void PortalRequest::send(const QString& interface,
                         const QString& method,
                         QVariantList arguments,
                         QVariantMap options,
                         Handler handler) {
    auto* const request = new PortalRequest(std::move(handler));
    const QString token = "pellumar" + QUuid::createUuid().toString(QUuid::Id128);
    options.insert(QStringLiteral("handle_token"), token);
    arguments.append(options);
    // The response may come before the reply, so its path is made up here, as the portal does it.
    const QString sender = QDBusConnection::sessionBus().baseService().mid(1).replace('.', '_');
    request->listen(kPath + "/request/" + sender + '/' + token);
    request->call(interface, method, arguments);
}

QDBusUnixFileDescriptor PortalRequest::openFile(const QUrl& url, int access) {
    QDBusUnixFileDescriptor file;
    const auto path = localPath(url);
    const int number = path ? ::open(path->c_str(), access | O_CLOEXEC | O_NONBLOCK) : -1;
    if (number >= 0) {
        file.giveFileDescriptor(number);
    }
    return file;
}

void PortalRequest::listen(const QString& path) {
    QDBusConnection::sessionBus().connect(kService,
                                          path,
                                          kRequest,
                                          QStringLiteral("Response"),
                                          this,
                                          SLOT(responded(uint, QVariantMap)));
}

void PortalRequest::call(const QString& interface,
                         const QString& method,
                         const QVariantList& arguments) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    auto* const watcher =
        new QDBusServiceWatcher(kService, bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        finish(Outcome::kCancelled);
    });
    QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, interface, method);
    message.setArguments(arguments);
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        if (QDBusPendingReply<QDBusObjectPath>(*answer).isError()) {
            finish(Outcome::kUnavailable);
        }
    });
}

void PortalRequest::responded(uint response, const QVariantMap& /*results*/) {
    finish(response == kSuccess ? Outcome::kDone : Outcome::kCancelled);
}

void PortalRequest::finish(Outcome outcome) {
    if (const Handler handler = std::exchange(handler_, {})) {
        handler(outcome);
        deleteLater();
    }
}

}  // namespace pellumar
