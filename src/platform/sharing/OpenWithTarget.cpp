#include "platform/sharing/OpenWithTarget.h"

#include <fcntl.h>

#include <QCoreApplication>
#include <QDesktopServices>

#include "platform/sharing/ActivityType.h"
#include "platform/sharing/PortalRequest.h"

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

bool OpenWithTarget::canPerform(const ItemSummary& summary) const {
    return summary.items.size() == 1;
}

void OpenWithTarget::perform(const QList<QUrl>& urls, const Done& done) {
    const QUrl& url = urls.first();
    // An application in a sandbox can save what it has changed only if it is said beforehand.
    QDBusUnixFileDescriptor file = PortalRequest::openFile(url, O_RDWR);
    const bool isWritable = file.isValid();
    if (!isWritable) {
        file = PortalRequest::openFile(url, O_RDONLY);
    }
    PortalRequest::send(QStringLiteral("org.freedesktop.portal.OpenURI"),
                        QStringLiteral("OpenFile"),
                        {QString(), QVariant::fromValue(file)},
                        {{QStringLiteral("ask"), true}, {QStringLiteral("writable"), isWritable}},
                        [url, done](PortalRequest::Outcome outcome) {
                            if (outcome == PortalRequest::Outcome::kUnavailable) {
                                openByDesktop(url, done);
                            } else {
                                done({.isCompleted = outcome == PortalRequest::Outcome::kDone});
                            }
                        });
}

}  // namespace pellumar
