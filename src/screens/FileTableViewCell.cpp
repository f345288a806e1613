#include "screens/FileTableViewCell.h"

#include "platform/FileUrl.h"
#include "platform/documents/ThumbnailProvider.h"
#include "platform/documents/UIDocumentInteractionController.h"
#include "screens/FileDetails.h"

namespace pellumar {

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
        [url](const auto& /*isWanted*/) { return fileDetails(url); },
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
