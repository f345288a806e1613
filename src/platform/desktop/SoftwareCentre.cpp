#include "platform/desktop/SoftwareCentre.h"

#include <QFile>
#include <QStandardPaths>

namespace pellumar {

bool SoftwareCentre::isInstalled() {
    const QStringList lists = QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation,
                                                        QStringLiteral("mimeinfo.cache"));
    for (const QString& list : lists) {
        QFile file(list);
        if (file.open(QIODevice::ReadOnly) &&
            file.readAll().contains("x-scheme-handler/appstream=")) {
            return true;
        }
    }
    return false;
}

QUrl SoftwareCentre::page(const QString& component) {
    return QUrl(QStringLiteral("appstream:") + component);
}

}  // namespace pellumar
