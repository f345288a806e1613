#include "platform/sharing/DesktopTargets.h"

#include "platform/TextList.h"
#include "platform/sharing/ActivityType.h"
#include "platform/sharing/CopyTarget.h"
#include "platform/sharing/EmailTarget.h"
#include "platform/sharing/OpenWithTarget.h"
#include "platform/sharing/ProgramTarget.h"
#include "platform/sharing/ShowInFilesTarget.h"

namespace pellumar {
namespace {

QStringList asPaths(const QList<QUrl>& urls) {
    return textList(urls, &QUrl::toLocalFile);
}

QStringList asAddresses(const QList<QUrl>& urls) {
    return textList(urls, [](const QUrl& url) { return url.toString(QUrl::FullyEncoded); });
}

}  // namespace

std::vector<std::shared_ptr<ShareTarget>> desktopTargets() {
    using Program = ProgramTarget::Description;
    return {
        std::make_shared<OpenWithTarget>(),
        std::make_shared<EmailTarget>(),
        std::make_shared<ProgramTarget>(
            Program{.label = {activity::kBluetooth, ShareTarget::text("Bluetooth"), "bluetooth"},
                    .program = "bluetooth-sendto",
                    .takesSeveral = true,
                    .arguments = asPaths}),
        std::make_shared<ProgramTarget>(
            Program{.label = {activity::kPhone, ShareTarget::text("Device"), "phone"},
                    .program = "kdeconnect-handler",
                    .takesSeveral = false,
                    .arguments = asAddresses}),
        std::make_shared<CopyTarget>(),
        std::make_shared<ShowInFilesTarget>(),
    };
}

}  // namespace pellumar
