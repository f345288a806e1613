#include "platform/sharing/CopyTarget.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/sharing/ActivityType.h"

namespace pellumar {

QString CopyTarget::activityType() const {
    return activity::kCopy;
}

QString CopyTarget::title() const {
    return QCoreApplication::translate("ShareTarget", "Copy");
}

QString CopyTarget::iconName() const {
    return QStringLiteral("copy");
}

bool CopyTarget::canPerform(const ItemSummary& /*summary*/) const {
    return true;
}

void CopyTarget::perform(const QList<QUrl>& urls, const Done& done) {
    QStringList paths;
    QByteArray files = "copy";
    for (const QUrl& url : urls) {
        paths.append(url.toLocalFile());
        files += '\n' + url.toEncoded();
    }
    auto* content = new QMimeData;
    content->setUrls(urls);
    content->setText(paths.join('\n'));
    // What file managers of the GTK family read.
    content->setData(QStringLiteral("x-special/gnome-copied-files"), files);
    QGuiApplication::clipboard()->setMimeData(content);
    done({.isCompleted = true, .notice = QCoreApplication::translate("ShareTarget", "Copied")});
}

}  // namespace pellumar
