#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <filesystem>

#include "platform/documents/UIDocumentPickerViewController.h"
#include "platform/kit/UIWindow.h"
#include "platform/sharing/SharedItems.h"

namespace pellumar {

// What the user has changed in files that earlier runs have handed out is kept in a folder where
// the user finds it, and said.
class KeptEdits {
  public:
    // "Pellumar Zip" in the user's documents.
    [[nodiscard]] static std::filesystem::path standardFolder();

    // For the main thread, once a launch, at any moment from when the window is there: looks in the
    // background and, if there is anything, says it in a notice that stays until it is closed. All
    // must outlive the work.
    static void recover(const SharedItems& sharedItems,
                        const DocumentServices& documents,
                        UIWindow& window);

    // What is said of these files, of which there is at least one.
    [[nodiscard]] static QString text(const QList<QUrl>& files);
};

}  // namespace pellumar
