#include "app/PlatformParts.h"

#include <QFile>

#include "platform/UserFolders.h"
#include "platform/sharing/DesktopTargets.h"

namespace pellumar {

PlatformParts::PlatformParts()
    : memory(QFile::decodeName(UserFolders::config("platform.ini").c_str()), QSettings::IniFormat),
      thumbnails(ThumbnailStore::standardFolder(), Thumbnailers(Thumbnailers::standardFolders())),
      photoLibrary(PHPhotoLibrary::standardFolders()),
      inbox(DocumentInbox::standardFolder(), mainQueue, folderQueue),
      sharedItems(SharedItems::standardFolder()),
      shareTargets(desktopTargets()) {}

}  // namespace pellumar
