#include "platform/sharing/ShowInFiles.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "platform/TextList.h"
#include "platform/sharing/SessionBusNames.h"

namespace pellumar {
namespace {

const QString kFileManager = QStringLiteral("org.freedesktop.FileManager1");
// Some file managers open a window for each.
constexpr qsizetype kMostSelected = 10;

QString address(const QUrl& url) {
    return QString::fromLatin1(url.toEncoded());
}

QStringList foldersOf(const QList<QUrl>& urls) {
    QStringList folders = textList(urls, [](const QUrl& url) {
        return address(url.adjusted(QUrl::StripTrailingSlash).adjusted(QUrl::RemoveFilename));
    });
    folders.removeDuplicates();
    return folders;
}

}  // namespace

bool hasFileManager() {
    return isOnSessionBus(kFileManager);
}

QString showInFilesTitle() {
    return ShareTarget::tr("Show in files");
}

Notice::Action showInFilesAction(const QList<QUrl>& urls) {
    if (urls.isEmpty() || !hasFileManager()) {
        return {};
    }
    return {showInFilesTitle(), [urls] { showInFiles(urls, [](const auto& /*result*/) {}); }};
}

void showInFiles(const QList<QUrl>& urls, const ShareTarget::Done& done) {
    const bool areFew = urls.size() <= kMostSelected;
    QDBusMessage call = QDBusMessage::createMethodCall(
        kFileManager,
        QStringLiteral("/org/freedesktop/FileManager1"),
        kFileManager,
        areFew ? QStringLiteral("ShowItems") : QStringLiteral("ShowFolders"));
    // The folders of many are one, but for namesakes; a window for each of a hundred is no help.
    call << (areFew ? textList(urls, address) : foldersOf(urls).mid(0, kMostSelected)) << QString();
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, done] {
        answer->deleteLater();
        const bool isShown = !QDBusPendingReply<>(*answer).isError();
        const QString error = ShareTarget::tr("The file manager could not be opened");
        done({.isCompleted = isShown, .error = isShown ? QString() : error});
    });
}

}  // namespace pellumar
