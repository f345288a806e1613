#include "platform/photos/FileImageManager.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QImageReader>
#include <QStorageInfo>
#include <QThread>
#include <algorithm>
#include <array>

#include "platform/FileUrl.h"
#include "platform/gui/QtImage.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// The largest picture that the desktop's thumbnail cache knows.
constexpr int kPosterSide = 1024;
// A photo of 250 megapixels, decoded.
constexpr int kLargestImageMb = 1024;

bool isReachable(const PHAsset& asset, PHRequestOptions options) {
    constexpr std::array kNetworks = {
        "nfs", "cifs", "smb3", "9p", "davfs", "fuse.sshfs", "fuse.rclone", "fuse.gvfsd-fuse"};
    if (options.isNetworkAccessAllowed) {
        return true;
    }
    const QStorageInfo volume(QString::fromStdString(asset.file.parent_path().native()));
    const QByteArray kind = volume.fileSystemType();
    return std::none_of(kNetworks.begin(), kNetworks.end(), [&kind](const char* network) {
        return kind.startsWith(network);
    });
}

// Opened for reading, which a server that cannot be reached fails.
void open(QFile& file, const fs::path& path) {
    const int number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (number >= 0) {
        static_cast<void>(file.open(number, QIODevice::ReadOnly, QFile::AutoCloseHandle));
    }
}

void answerWithFile(const PHAsset& asset,
                    PHRequestOptions options,
                    const PHImageManager::FileAnswer& answer) {
    QFile file;
    if (isReachable(asset, options)) {
        open(file, asset.file);
    }
    // Only a read tells whether the content is to be had.
    char first = 0;
    const bool isReadable = file.isOpen() && !file.isSequential() && file.read(&first, 1) >= 0;
    answer(isReadable ? std::optional(fileUrl(asset.file)) : std::nullopt);
}

QImage decode(const fs::path& path) {
    QFile file;
    open(file, path);
    if (!file.isOpen()) {
        return {};
    }
    QImageReader reader(&file);
    reader.setAutoTransform(true);
    return reader.read();
}

}  // namespace

FileImageManager::FileImageManager(const ThumbnailStore& posters)
    : posters_(posters), decoding_(std::max(2, QThread::idealThreadCount())) {
    QImageReader::setAllocationLimit(kLargestImageMb);
}

void FileImageManager::requestContentEditingInput(const PHAsset& photo,
                                                  PHRequestOptions options,
                                                  const FileAnswer& answer) {
    answerWithFile(photo, options, answer);
}

void FileImageManager::requestVideo(const PHAsset& video,
                                    PHRequestOptions options,
                                    const FileAnswer& answer) {
    answerWithFile(video, options, answer);
}

void FileImageManager::requestImage(const PHAsset& asset,
                                    PHRequestOptions options,
                                    const ImageAnswer& answer) {
    QImage image;
    if (isReachable(asset, options)) {
        decoding_.acquire();
        const QSemaphoreReleaser turn(decoding_);
        if (asset.mediaType == PHAssetMediaType::kImage) {
            image = decode(asset.file);
        }
        if (image.isNull()) {
            image = posters_.thumbnail(asset.file, kPosterSide);
        }
    }
    if (image.isNull()) {
        answer(nullptr, std::nullopt);
    } else {
        answer(std::make_shared<QtImage>(image), PHImageInfo{.isDegraded = false});
    }
}

}  // namespace pellumar
