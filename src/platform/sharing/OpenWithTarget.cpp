#include "platform/sharing/OpenWithTarget.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QVariantMap>

#include "platform/FileUrl.h"
#include "platform/sharing/ActivityType.h"

namespace pellumar {
namespace {

void openByDesktop(const QUrl& url, const ShareTarget::Done& done) {
    const bool isOpened = QDesktopServices::openUrl(url);
    done({.isCompleted = isOpened,
          .error = isOpened ? QString()
                            : QCoreApplication::translate("ShareTarget",
                                                          "No application opens this file")});
}

}  // namespace

QString OpenWithTarget::activityType() const {
    return activity::kOpenWith;
}

QString OpenWithTarget::title() const {
    return QCoreApplication::translate("ShareTarget", "Open with…");
}

QString OpenWithTarget::iconName() const {
    return QStringLiteral("open");
}

bool OpenWithTarget::canPerform(const QList<QUrl>& urls) const {
    return urls.size() == 1;
}

void OpenWithTarget::perform(const QList<QUrl>& urls, const Done& done) {
    const QUrl url = urls.first();
    const auto path = localPath(url);
    const int file = path ? ::open(path->c_str(), O_RDONLY | O_CLOEXEC) : -1;
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                       QStringLiteral("/org/freedesktop/portal/desktop"),
                                       QStringLiteral("org.freedesktop.portal.OpenURI"),
                                       QStringLiteral("OpenFile"));
    call << QString() << QVariant::fromValue(QDBusUnixFileDescriptor(file))
         << QVariantMap{{QStringLiteral("ask"), true}};
    if (file >= 0) {
        // The message has one of its own.
        ::close(file);
    }
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, url, done] {
        answer->deleteLater();
        if (QDBusPendingReply<>(*answer).isError()) {
            openByDesktop(url, done);
        } else {
            done({.isCompleted = true, .error = {}});
        }
    });
}

}  // namespace pellumar
