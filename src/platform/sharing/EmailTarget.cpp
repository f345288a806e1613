#include "platform/sharing/EmailTarget.h"

#include <fcntl.h>

#include <QDBusMetaType>
#include <QProcess>
#include <QStandardPaths>

#include "platform/sharing/PortalRequest.h"
#include "platform/sharing/SessionBusNames.h"

namespace pellumar {
namespace {

const QString kProgram = QStringLiteral("xdg-email");

void composeByProgram(const QList<QUrl>& urls, const ShareTarget::Done& done) {
    QStringList arguments;
    for (const QUrl& url : urls) {
        arguments << QStringLiteral("--attach") << url.toLocalFile();
    }
    const bool isStarted = QProcess::startDetached(kProgram, arguments);
    done({.isCompleted = isStarted,
          .error = isStarted ? QString() : ShareTarget::text("No application for mail")});
}

}  // namespace

bool EmailTarget::canPerform(const ItemSummary& summary) const {
    return summary.folders == 0 &&
           (!QStandardPaths::findExecutable(kProgram).isEmpty() ||
            isOnSessionBus(QStringLiteral("org.freedesktop.portal.Desktop")));
}

void EmailTarget::perform(const QList<QUrl>& urls, const Done& done) {
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
    QList<QDBusUnixFileDescriptor> files;
    for (const QUrl& url : urls) {
        files.append(PortalRequest::openFile(url, O_RDONLY));
    }
    PortalRequest::send(QStringLiteral("org.freedesktop.portal.Email"),
                        QStringLiteral("ComposeEmail"),
                        {QString()},
                        {{QStringLiteral("attachment_fds"), QVariant::fromValue(files)}},
                        [urls, done](PortalRequest::Outcome outcome) {
                            if (outcome == PortalRequest::Outcome::kUnavailable) {
                                composeByProgram(urls, done);
                            } else {
                                done({.isCompleted = outcome == PortalRequest::Outcome::kDone});
                            }
                        });
}

}  // namespace pellumar
