#include "platform/sharing/DesktopTargets.h"

#include <QCoreApplication>

#include "platform/sharing/ActivityType.h"
#include "platform/sharing/CopyTarget.h"
#include "platform/sharing/OpenWithTarget.h"
#include "platform/sharing/ProgramTarget.h"
#include "platform/sharing/ShowInFilesTarget.h"

namespace pellumar {
namespace {

QString text(const char* source) {
    return QCoreApplication::translate("ShareTarget", source);
}

QStringList asPaths(const QList<QUrl>& urls) {
    QStringList paths;
    for (const QUrl& url : urls) {
        paths.append(url.toLocalFile());
    }
    return paths;
}

QStringList asAttachments(const QList<QUrl>& urls) {
    QStringList arguments;
    for (const QUrl& url : urls) {
        arguments << QStringLiteral("--attach") << url.toLocalFile();
    }
    return arguments;
}

QStringList asAddresses(const QList<QUrl>& urls) {
    QStringList addresses;
    for (const QUrl& url : urls) {
        addresses.append(url.toString(QUrl::FullyEncoded));
    }
    return addresses;
}

}  // namespace

std::vector<std::shared_ptr<ShareTarget>> desktopTargets() {
    using Program = ProgramTarget::Description;
    return {
        std::make_shared<OpenWithTarget>(),
        std::make_shared<ProgramTarget>(
            Program{activity::kMail, text("Email"), "email", "xdg-email", asAttachments}),
        std::make_shared<ProgramTarget>(Program{
            activity::kBluetooth, text("Bluetooth"), "bluetooth", "bluetooth-sendto", asPaths}),
        std::make_shared<ProgramTarget>(
            Program{activity::kPhone, text("Device"), "phone", "kdeconnect-handler", asAddresses}),
        std::make_shared<CopyTarget>(),
        std::make_shared<ShowInFilesTarget>(),
    };
}

}  // namespace pellumar
