#include "platform/sharing/ShowInFilesTarget.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "platform/sharing/ActivityType.h"
#include "platform/sharing/SessionBusNames.h"

namespace pellumar {
namespace {

const QString kFileManager = QStringLiteral("org.freedesktop.FileManager1");

}  // namespace

QString ShowInFilesTarget::activityType() const {
    return activity::kShowInFiles;
}

QString ShowInFilesTarget::title() const {
    return QCoreApplication::translate("ShareTarget", "Show in files");
}

QString ShowInFilesTarget::iconName() const {
    return QStringLiteral("show");
}

bool ShowInFilesTarget::canPerform(const QList<QUrl>& urls) const {
    return !urls.isEmpty() && isOnSessionBus(kFileManager);
}

void ShowInFilesTarget::perform(const QList<QUrl>& urls, const Done& done) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kFileManager,
                                       QStringLiteral("/org/freedesktop/FileManager1"),
                                       kFileManager,
                                       QStringLiteral("ShowItems"));
    QStringList addresses;
    for (const QUrl& url : urls) {
        addresses.append(QString::fromLatin1(url.toEncoded()));
    }
    call << addresses << QString();
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, done] {
        answer->deleteLater();
        const QDBusPendingReply<> reply = *answer;
        done({.isCompleted = !reply.isError(), .error = reply.error().message()});
    });
}

}  // namespace pellumar
