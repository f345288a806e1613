#include "platform/sharing/DesktopTargets.h"

#include <fcntl.h>

#include <QClipboard>
#include <QDBusMetaType>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QStandardPaths>

#include "platform/TextList.h"
#include "platform/sharing/ActivityType.h"
#include "platform/sharing/PortalRequest.h"
#include "platform/sharing/SessionBusNames.h"
#include "platform/sharing/ShowInFiles.h"

namespace pellumar {
namespace {

using Done = ShareTarget::Done;

const QString kMailProgram = QStringLiteral("xdg-email");

bool isInstalled(const QString& program) {
    return !QStandardPaths::findExecutable(program).isEmpty();
}

QStringList asPaths(const QList<QUrl>& urls) {
    return textList(urls, &QUrl::toLocalFile);
}

QStringList asAddresses(const QList<QUrl>& urls) {
    return textList(urls, [](const QUrl& url) { return url.toString(QUrl::FullyEncoded); });
}

void answer(const Done& done, bool isCompleted, const QString& error) {
    done({.isCompleted = isCompleted, .error = isCompleted ? QString() : error});
}

// Tells how the portal ended, or does the other thing where there is none.
PortalRequest::Handler byPortalOr(const Done& done, const std::function<void()>& otherwise) {
    return [done, otherwise](PortalRequest::Outcome outcome) {
        if (outcome == PortalRequest::Outcome::kUnavailable) {
            otherwise();
        } else {
            done({.isCompleted = outcome == PortalRequest::Outcome::kDone});
        }
    };
}

void openWith(const QList<QUrl>& urls, const Done& done) {
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
                        byPortalOr(done, [url, done] {
                            answer(done,
                                   QDesktopServices::openUrl(url),
                                   ShareTarget::tr("No application opens this file"));
                        }));
}

void sendByMail(const QList<QUrl>& urls, const Done& done) {
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
    QList<QDBusUnixFileDescriptor> files;
    QStringList arguments;
    for (const QUrl& url : urls) {
        files.append(PortalRequest::openFile(url, O_RDONLY));
        arguments << QStringLiteral("--attach") << url.toLocalFile();
    }
    PortalRequest::send(QStringLiteral("org.freedesktop.portal.Email"),
                        QStringLiteral("ComposeEmail"),
                        {QString()},
                        {{QStringLiteral("attachment_fds"), QVariant::fromValue(files)}},
                        byPortalOr(done, [arguments, done] {
                            answer(done,
                                   QProcess::startDetached(kMailProgram, arguments),
                                   ShareTarget::tr("No application for mail"));
                        }));
}

void putOnClipboard(const QList<QUrl>& urls, const Done& done) {
    QByteArray files = "copy";
    for (const QUrl& url : urls) {
        files += '\n' + url.toEncoded();
    }
    auto* content = new QMimeData;
    content->setUrls(urls);
    content->setText(asPaths(urls).join('\n'));
    // What file managers of the GTK family read.
    content->setData(QStringLiteral("x-special/gnome-copied-files"), files);
    QGuiApplication::clipboard()->setMimeData(content);
    done({.isCompleted = true, .notice = ShareTarget::tr("Copied")});
}

// Takes no folders.
ShareTarget program(ShareTarget label,
                    const QString& name,
                    bool takesSeveral,
                    QStringList (*arguments)(const QList<QUrl>& urls)) {
    label.perform = [name, arguments](const QList<QUrl>& urls, const Done& done) {
        answer(done,
               QProcess::startDetached(name, arguments(urls)),
               ShareTarget::tr("%1 could not be started").arg(name));
    };
    label.canPerform = [name, takesSeveral](const ItemSummary& summary) {
        return summary.folders == 0 && (summary.items.size() == 1 || takesSeveral) &&
               isInstalled(name);
    };
    return label;
}

}  // namespace

std::vector<ShareTarget> desktopTargets() {
    return {
        {.activityType = activity::kOpenWith,
         .title = ShareTarget::tr("Open with…"),
         .iconName = "open",
         .perform = openWith,
         .canPerform = [](const ItemSummary& summary) { return summary.items.size() == 1; }},
        {.activityType = activity::kMail,
         .title = ShareTarget::tr("Email"),
         .iconName = "email",
         .perform = sendByMail,
         .canPerform =
             [](const ItemSummary& summary) {
                 return summary.folders == 0 &&
                        (isInstalled(kMailProgram) ||
                         isOnSessionBus(QStringLiteral("org.freedesktop.portal.Desktop")));
             }},
        program({activity::kBluetooth, ShareTarget::tr("Bluetooth"), "bluetooth"},
                "bluetooth-sendto",
                true,
                asPaths),
        program({activity::kPhone, ShareTarget::tr("Device"), "phone"},
                "kdeconnect-handler",
                false,
                asAddresses),
        {.activityType = activity::kCopy,
         .title = ShareTarget::tr("Copy"),
         .iconName = "copy",
         .perform = putOnClipboard},
        {.activityType = activity::kShowInFiles,
         .title = showInFilesTitle(),
         .iconName = "show",
         .perform = showInFiles,
         .canPerform = [](const auto& /*summary*/) { return hasFileManager(); }},
    };
}

}  // namespace pellumar
