#include "screens/ThumbnailProvider.h"

#include <QImageReader>
#include <QRunnable>
#include <QThreadPool>
#include <QUrl>
#include <memory>

namespace pellumar {
namespace {

constexpr int kLargestSide = 256;
// A file larger than this is not worth a small picture.
constexpr qint64 kLargestFile = 64 << 20;

QImage decode(const QString& path, const QSize& wanted) {
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isValid() || reader.device()->size() > kLargestFile) {
        return {};
    }
    const QSize box = wanted.isEmpty() ? QSize(kLargestSide, kLargestSide) : wanted;
    reader.setScaledSize(size.scaled(box, Qt::KeepAspectRatioByExpanding).boundedTo(size));
    return reader.read();
}

class Response : public QQuickImageResponse {
  public:
    Response(const QString& path, const QSize& wanted) {
        QThreadPool::globalInstance()->start([this, path, wanted] {
            image_ = decode(path, wanted);
            if (image_.isNull()) {
                // No fault: the row shows its icon instead.
                image_ = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
                image_.fill(Qt::transparent);
            }
            // The engine deletes this after the signal, in its own thread, and never before.
            emit finished();
        });
    }

    [[nodiscard]] QQuickTextureFactory* textureFactory() const override {
        return QQuickTextureFactory::textureFactoryForImage(image_);
    }

  private:
    QImage image_;
};

}  // namespace

QQuickImageResponse* ThumbnailProvider::requestImageResponse(const QString& id,
                                                             const QSize& requestedSize) {
    const QByteArray url = QByteArray::fromBase64(id.toLatin1(), QByteArray::Base64UrlEncoding);
    return new Response(QUrl::fromEncoded(url).toLocalFile(), requestedSize);
}

}  // namespace pellumar
