#pragma once

#include <QHash>
#include <QString>
#include <atomic>
#include <filesystem>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/photos/PHAsset.h"

namespace pellumar {

// The photos and videos in some folders and the folders in them. Hidden ones are left out, and
// links to folders are not followed. It changes nothing there. For any thread.
class PHPhotoLibrary {
  public:
    // `folders` need not exist.
    explicit PHPhotoLibrary(std::vector<std::filesystem::path> folders);

    // The user's folders of pictures and of videos, but for one that is the home folder itself, as
    // it is where the user has none.
    [[nodiscard]] static std::vector<std::filesystem::path> standardFolders();

    // All assets, the newest first. Ends early, with what it has, once `isCancelled` is true. For a
    // thread that may block, perhaps for ever, as the folders may be on a network.
    [[nodiscard]] std::vector<PHAsset> fetchAssets(const std::atomic<bool>& isCancelled) const;

    // The asset with this identifier, as the latest fetchAssets() found it: nothing if it did not.
    // Looks into no folder.
    [[nodiscard]] std::optional<PHAsset> fetchAsset(const QString& localIdentifier) const;

  private:
    const std::vector<std::filesystem::path> folders_;
    mutable std::mutex mutex_;
    mutable QHash<QString, PHAsset> known_;
};

}  // namespace pellumar
