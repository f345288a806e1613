#include "platform/photos/PHPhotoLibrary.h"

#include <sys/stat.h>

#include <QMimeDatabase>
#include <QStandardPaths>
#include <algorithm>
#include <system_error>
#include <unordered_set>

#include "platform/FileUrl.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// By the name alone: to look into thousands of files would take too long.
class MediaTypes {
  public:
    PHAssetMediaType of(const fs::path& file) {
        const QString suffix = QString::fromStdString(file.extension().native()).toLower();
        const auto known = known_.constFind(suffix);
        return known != known_.cend() ? *known : *known_.insert(suffix, look(suffix));
    }

  private:
    [[nodiscard]] PHAssetMediaType look(const QString& suffix) const {
        const QString type =
            types_.mimeTypeForFile("x" + suffix, QMimeDatabase::MatchExtension).name();
        if (type.startsWith(QLatin1String("video/"))) {
            return PHAssetMediaType::kVideo;
        }
        return type.startsWith(QLatin1String("image/")) ? PHAssetMediaType::kImage
                                                        : PHAssetMediaType::kUnknown;
    }

    QMimeDatabase types_;
    QHash<QString, PHAssetMediaType> known_;
};

bool isHidden(const fs::path& path) {
    return path.filename().native().front() == '.';
}

std::optional<PHAsset> assetOf(const fs::path& file, PHAssetMediaType type) {
    struct stat status {};
    if (type == PHAssetMediaType::kUnknown || ::stat(file.c_str(), &status) != 0 ||
        !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return PHAsset{QString::fromLatin1(fileUrl(file).toEncoded()),
                   type,
                   file,
                   static_cast<qint64>(status.st_mtim.tv_sec)};
}

}  // namespace

PHPhotoLibrary::PHPhotoLibrary(std::vector<fs::path> folders) : folders_(std::move(folders)) {}

std::vector<fs::path> PHPhotoLibrary::standardFolders() {
    using Paths = QStandardPaths;
    std::vector<fs::path> folders;
    for (const auto location : {Paths::PicturesLocation, Paths::MoviesLocation}) {
        const QString folder = Paths::writableLocation(location);
        if (!folder.isEmpty() && folder != Paths::writableLocation(Paths::HomeLocation)) {
            folders.emplace_back(folder.toStdString());
        }
    }
    return folders;
}

std::vector<PHAsset> PHPhotoLibrary::fetchAssets(const std::atomic<bool>& isCancelled) const {
    std::vector<PHAsset> assets;
    // One of the folders may lie in another.
    std::unordered_set<std::string> seen;
    MediaTypes types;
    for (const fs::path& folder : folders_) {
        std::error_code failure;
        fs::recursive_directory_iterator each(
            folder, fs::directory_options::skip_permission_denied, failure);
        for (; !failure && each != fs::recursive_directory_iterator() && !isCancelled;
             each.increment(failure)) {
            std::error_code unknown;
            if (isHidden(each->path())) {
                each.disable_recursion_pending();
                continue;
            }
            if (each->is_directory(unknown)) {
                continue;
            }
            auto asset = assetOf(each->path(), types.of(each->path()));
            if (asset && seen.insert(each->path().native()).second) {
                assets.push_back(std::move(*asset));
            }
        }
    }
    std::stable_sort(assets.begin(), assets.end(), [](const PHAsset& one, const PHAsset& other) {
        return one.changed > other.changed;
    });
    const std::lock_guard lock(mutex_);
    known_.clear();
    for (const PHAsset& asset : assets) {
        known_.insert(asset.localIdentifier, asset);
    }
    return assets;
}

std::optional<PHAsset> PHPhotoLibrary::fetchAsset(const QString& localIdentifier) const {
    const std::lock_guard lock(mutex_);
    const auto found = known_.constFind(localIdentifier);
    return found == known_.cend() ? std::nullopt : std::optional(*found);
}

}  // namespace pellumar
