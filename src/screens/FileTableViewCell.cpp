#include "screens/FileTableViewCell.h"

#include <filesystem>
#include <system_error>

#include "platform/DisplayText.h"
#include "platform/FileUrl.h"
#include "platform/documents/ThumbnailProvider.h"
#include "platform/documents/UIDocumentInteractionController.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// "1.2 MB" of a file, "3 items" of a folder; nothing of what is gone. Counting a large folder takes
// its time.
QString detailsOf(const QUrl& url) {
    const auto path = localPath(url);
    std::error_code failure;
    if (!path) {
        return {};
    }
    if (!fs::is_directory(*path, failure)) {
        const std::uintmax_t size = fs::file_size(*path, failure);
        return failure ? QString() : sizeText(static_cast<qint64>(size));
    }
    int count = 0;
    fs::directory_iterator each(*path, failure);
    for (; !failure && each != fs::directory_iterator(); each.increment(failure)) {
        ++count;
    }
    return FileTableViewCell::tr("%Ln items", nullptr, count);
}

}  // namespace

void FileTableViewCell::awakeFromNib() {
    titleLabel_ = outlet<QQuickItem>(view(), QStringLiteral("titleLabel"));
    fileImageView_ = outlet<QQuickItem>(view(), QStringLiteral("fileImageView"));
}

void FileTableViewCell::configure(const QUrl& url, IndexPath indexPath) {
    static_cast<void>(view());
    indexPath_ = indexPath;
    titleLabel_->setProperty("text", lastPathComponent(url));
    const QStringList icons = UIDocumentInteractionController(url).icons();
    iconName_ = icons.isEmpty() ? QString() : icons.last();
    const bool hasPicture =
        iconName_ == QLatin1String("image") || iconName_ == QLatin1String("video");
    thumbnail_ = hasPicture ? ThumbnailProvider::source(url) : QString();
    detail_.clear();
    emit configured();
    question_ = askInBackground<QString>(
        documents_.mainQueue,
        documents_.backgroundQueue,
        [url](const auto& /*isWanted*/) { return detailsOf(url); },
        [this](const QString& detail) {
            detail_ = detail;
            emit configured();
        });
}

void FileTableViewCell::tell(void (FileCellDelegate::*what)(IndexPath at)) const {
    const auto told = delegate_.lock();
    if (indexPath_ && told) {
        (told.get()->*what)(*indexPath_);
    }
}

}  // namespace pellumar
