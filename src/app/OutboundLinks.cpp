#include "app/OutboundLinks.h"

#include <QCoreApplication>
#include <QDir>

#include "platform/desktop/SoftwareCentre.h"

namespace pellumar {
namespace {

const QString kInstalledPage = QStringLiteral(INSTALLED_PAGE);
const QString kComponent = QStringLiteral("org.pellumar.Zip");

}  // namespace

OutboundLinks::Addresses OutboundLinks::ofThisBuild() {
    return {QStringLiteral(WEB_PAGE), QStringLiteral(DEVELOPER_PAGE)};
}

QUrl OutboundLinks::webPage() const {
    if (!addresses_.webPage.isEmpty()) {
        return {addresses_.webPage, QUrl::StrictMode};
    }
    const QDir program(QCoreApplication::applicationDirPath());
    return QUrl::fromLocalFile(QDir::cleanPath(program.filePath(kInstalledPage)));
}

QUrl OutboundLinks::developerPage() const {
    QUrl page = addresses_.developerPage.isEmpty()
                    ? SoftwareCentre::page(kComponent)
                    : QUrl(addresses_.developerPage, QUrl::StrictMode);
    if (!page.isValid()) {
        qFatal("The developer's address is no URL.");
    }
    const bool isOfStore = page.scheme() == SoftwareCentre::page({}).scheme();
    return isOfStore && !hasStore_() ? webPage() : page;
}

}  // namespace pellumar
