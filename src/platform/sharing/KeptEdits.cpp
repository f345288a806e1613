#include "platform/sharing/KeptEdits.h"

#include <QCoreApplication>
#include <QPointer>
#include <QStandardPaths>
#include <algorithm>

#include "platform/DisplayText.h"
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
                                       [](const QUrl& file) { return isolated(file.fileName()); });
    const auto folder = localPath(files.first())->parent_path();
    const QString place =
        isolated(QString::fromStdString(folder.parent_path().filename() / folder.filename()));
    if (files.size() == 1) {
        return QCoreApplication::translate(
                   "KeptEdits", "You changed %1 in another application. It is kept in %2.")
            .arg(names.first(), place);
    }
    const QString all = names.join(QStringLiteral(", ")) +
                        (files.size() > kMostNamed ? QStringLiteral(", …") : QString());
    const auto count = static_cast<int>(files.size());
    return QCoreApplication::translate(
               "KeptEdits",
               "You changed %Ln files in other applications: %1. They are kept in %2.",
               nullptr,
               count)
        .arg(all, place);
}

}  // namespace pellumar
