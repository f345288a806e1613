#pragma once

#include <atomic>
#include <filesystem>
#include <optional>
#include <vector>

#include "platform/photos/PHAsset.h"

namespace pellumar {

// The photos and videos in some folders and the folders in them. Hidden ones are left out, and
// links to folders are not followed. For any thread that may block; it changes nothing.
class PHPhotoLibrary {
  public:
    // `folders` need not exist.
    explicit PHPhotoLibrary(std::vector<std::filesystem::path> folders);

    // The user's folders of pictures and of videos, but for one that is the home folder itself, as
    // it is where the user has none.
    [[nodiscard]] static std::vector<std::filesystem::path> standardFolders();

    // All assets, the newest first. Ends early, with what it has, once `isCancelled` is true.
    [[nodiscard]] std::vector<PHAsset> fetchAssets(const std::atomic<bool>& isCancelled) const;

    // The asset with this identifier: nothing if it is not of this library, or no longer there.
    [[nodiscard]] std::optional<PHAsset> fetchAsset(const QString& localIdentifier) const;

  private:
    const std::vector<std::filesystem::path> folders_;
};

}  // namespace pellumar
