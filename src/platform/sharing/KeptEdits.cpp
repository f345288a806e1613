#include "platform/sharing/KeptEdits.h"

#include <QCoreApplication>
#include <QPointer>
#include <QStandardPaths>
#include <algorithm>

#include "platform/FileUrl.h"
#include "platform/TextList.h"
#include "platform/kit/Notice.h"
#include "platform/sharing/ShowInFiles.h"

namespace pellumar {

std::filesystem::path KeptEdits::standardFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return std::filesystem::path(documents.toStdString()) / "Pellumar Zip";
}

void KeptEdits::recover(const SharedItems& sharedItems,
                        const DocumentServices& documents,
                        UIWindow& window) {
    documents.backgroundQueue.async(
        [&sharedItems, &mainQueue = documents.mainQueue, window = QPointer<UIWindow>(&window)] {
            mainQueue.async([window, files = sharedItems.recoverChanged(standardFolder())] {
                if (window != nullptr && !files.isEmpty()) {
                    Notice::show(
                        *window, text(files), showInFilesAction(files), Notice::Stay::kUntilClosed);
                }
            });
        });
}

QString KeptEdits::text(const QList<QUrl>& files) {
    constexpr qsizetype kMostNamed = 3;
    const QStringList names = textList(files.first(std::min(files.size(), kMostNamed)),
                                       [](const QUrl& file) { return file.fileName(); });
    const auto folder = localPath(files.first())->parent_path();
    const QString place =
        QString::fromStdString(folder.parent_path().filename() / folder.filename());
    if (files.size() == 1) {
        return QCoreApplication::translate(
                   "KeptEdits", "You changed %1 in another application. It is kept in %2.")
            .arg(names.first(), place);
    }
    const QString all = names.join(QStringLiteral(", ")) +
                        (files.size() > kMostNamed ? QStringLiteral(", …") : QString());
    return QCoreApplication::translate(
               "KeptEdits", "You changed %1 files in other applications: %2. They are kept in %3.")
        .arg(QString::number(files.size()), all, place);
}

}  // namespace pellumar
