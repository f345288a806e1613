#pragma once

#include <QSettings>
#include <cstdio>
#include <memory>
#include <vector>

#include "platform/Console.h"
#include "platform/FolderQueue.h"
#include "platform/GlobalDispatchQueue.h"
#include "platform/MainDispatchQueue.h"
#include "platform/desktop/DesktopUrlOpener.h"
#include "platform/desktop/PortalSleepInhibitor.h"
#include "platform/documents/DocumentInbox.h"
#include "platform/photos/FileImageManager.h"
#include "platform/photos/PHPhotoLibrary.h"
#include "platform/sharing/ShareTarget.h"
#include "platform/sharing/SharedItems.h"

namespace pellumar {

// What the system does for the application, as it is on this one; a part each, for whom it is
// handed to. Nothing is done in the background before somebody asks for it.
struct PlatformParts {
    PlatformParts();

    StreamConsole console{stdout};
    MainDispatchQueue mainQueue;
    // Behind the window, whose frames must not wait for archive work.
    static constexpr int kWorkNiceness = 5;
    GlobalDispatchQueue backgroundQueue{kWorkNiceness};
    // For the user's folders, which may be on a network and hang: apart, so that no job waits.
    static constexpr int kFoldersAtOnce = 32;
    GlobalDispatchQueue folderQueue{kWorkNiceness, kFoldersAtOnce};
    FolderQueue folders{folderQueue};
    // What the platform remembers by itself, apart from the user's preferences.
    QSettings memory;
    const ThumbnailStore thumbnails;
    const PHPhotoLibrary photoLibrary;
    FileImageManager images{thumbnails};
    DocumentInbox inbox;
    const SharedItems sharedItems;
    const std::vector<ShareTarget> shareTargets;
    DesktopUrlOpener opener;
    PortalSleepInhibitor sleep;
};

}  // namespace pellumar
