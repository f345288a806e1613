#include "platform/sharing/DesktopTargets.h"

#include <QCoreApplication>

#include "platform/sharing/ActivityType.h"
#include "platform/sharing/CopyTarget.h"
#include "platform/sharing/EmailTarget.h"
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
        std::make_shared<EmailTarget>(),
        std::make_shared<ProgramTarget>(Program{.activityType = activity::kBluetooth,
                                                .title = text("Bluetooth"),
                                                .iconName = "bluetooth",
                                                .program = "bluetooth-sendto",
                                                .takesSeveral = true,
                                                .arguments = asPaths}),
        std::make_shared<ProgramTarget>(Program{.activityType = activity::kPhone,
                                                .title = text("Device"),
                                                .iconName = "phone",
                                                .program = "kdeconnect-handler",
                                                .takesSeveral = false,
                                                .arguments = asAddresses}),
        std::make_shared<CopyTarget>(),
        std::make_shared<ShowInFilesTarget>(),
    };
}

}  // namespace pellumar
