#include "platform/sharing/CopyTarget.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace pellumar {

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
    done({.isCompleted = true, .notice = text("Copied")});
}

}  // namespace pellumar
