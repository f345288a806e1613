#include "platform/sharing/OpenWithTarget.h"

#include <fcntl.h>

#include <QDesktopServices>

#include "platform/sharing/PortalRequest.h"

namespace pellumar {
namespace {

void openByDesktop(const QUrl& url, const ShareTarget::Done& done) {
    const bool isOpened = QDesktopServices::openUrl(url);
    done({.isCompleted = isOpened,
          .error = isOpened ? QString() : ShareTarget::text("No application opens this file")});
}

}  // namespace

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
