#include "platform/documents/ThumbnailStore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QImageReader>
#include <QMimeDatabase>
#include <QSaveFile>
#include <array>
#include <cstdint>
#include <system_error>
#include <utility>

#include "platform/UserFolders.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

struct CacheSize {
    const char* folder;
    int side;
};
constexpr std::array<CacheSize, 4> kSizes{
    {{"normal", 128}, {"large", 256}, {"x-large", 512}, {"xx-large", 1024}}};
constexpr qint64 kLargestFile = 256 << 20;
const QString kUri = QStringLiteral("Thumb::URI");
const QString kChanged = QStringLiteral("Thumb::MTime");

// The smallest that is large enough, or the largest there is.
const CacheSize& cacheSize(int side) {
    for (const CacheSize& size : kSizes) {
        if (size.side >= side) {
            return size;
        }
    }
    return kSizes.back();
}

// Escaped as the other applications do it, or they would not find each other's.
QByteArray uriOf(const fs::path& file) {
    return "file://" + QByteArray::fromStdString(file.native()).toPercentEncoding("/!$&'()*+,:=@");
}

QImage fitted(const QImage& image, int side) {
    const bool isLarger = image.width() > side || image.height() > side;
    return isLarger ? image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                    : image;
}

}  // namespace

ThumbnailStore::ThumbnailStore(fs::path folder, Thumbnailers helpers)
    : folder_(std::move(folder)), helpers_(std::move(helpers)) {}

fs::path ThumbnailStore::standardFolder() {
    return UserFolders::commonCache() / "thumbnails";
}

QImage ThumbnailStore::thumbnail(const fs::path& file, int side) const {
    struct stat status {};
    if (side <= 0 || ::stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return {};
    }
    const QByteArray uri = uriOf(file);
    const Original original{QString::fromLatin1(uri),
                            QString::number(static_cast<qint64>(status.st_mtim.tv_sec))};
    const QByteArray hash = QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex();
    const CacheSize& size = cacheSize(side);
    const fs::path place = folder_ / size.folder / (hash.toStdString() + ".png");
    QImage image = read(place, original);
    if (image.isNull()) {
        image = make(file, status.st_size, size.side);
        // Of what is small already, and of thumbnails, none are kept.
        const fs::path inside = file.lexically_relative(folder_);
        const bool isThumbnail = !inside.empty() && *inside.begin() != "..";
        const bool isReduced = image.width() == size.side || image.height() == size.side;
        if (isReduced && !isThumbnail) {
            save(place, image, original);
        }
    }
    return fitted(image, side);
}

QImage ThumbnailStore::read(const fs::path& place, const Original& original) {
    // The reader's own text() knows no keys with colons.
    QImage image = QImageReader(QString::fromStdString(place.native()), "png").read();
    const bool isValid =
        image.text(kUri) == original.uri && image.text(kChanged) == original.changed;
    return isValid ? image : QImage();
}

QImage ThumbnailStore::make(const fs::path& file, qint64 length, int side) const {
    const QString name = QString::fromStdString(file.native());
    const QString type =
        QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension).name();
    const bool isVideo = type.startsWith(QLatin1String("video/"));
    if (!isVideo && length > kLargestFile) {
        return {};
    }
    const QImage image = isVideo ? QImage() : decode(file, side);
    return image.isNull() ? fitted(helpers_.picture(file, type, side), side) : image;
}

QImage ThumbnailStore::decode(const fs::path& file, int side) {
    // By descriptor, as its name may be no text.
    const int number = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    QFile content;
    if (number < 0 || !content.open(number, QIODevice::ReadOnly, QFile::AutoCloseHandle)) {
        return {};
    }
    QImageReader reader(&content);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.width() > side || size.height() > side) {
        // While decoding: a photo as it is would be too large for the memory.
        const QSize reduced = size.scaled(side, side, Qt::KeepAspectRatio);
        reader.setScaledSize(reduced.expandedTo(QSize(1, 1)));
    }
    return fitted(reader.read(), side);
}

void ThumbnailStore::save(const fs::path& place, QImage image, const Original& original) {
    std::error_code failure;
    fs::create_directories(place.parent_path(), failure);
    if (failure) {
        return;
    }
    // What the user sees is nobody else's business.
    fs::permissions(place.parent_path(), fs::perms::owner_all, failure);
    image.setText(kUri, original.uri);
    image.setText(kChanged, original.changed);
    QSaveFile file(QString::fromStdString(place.native()));
    if (file.open(QIODevice::WriteOnly) &&
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) && image.save(&file, "PNG")) {
        // A cache may fail.
        static_cast<void>(file.commit());
    }
}

}  // namespace pellumar
