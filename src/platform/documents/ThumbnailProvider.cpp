#include "platform/documents/ThumbnailProvider.h"

#include <algorithm>

#include "platform/FileUrl.h"

namespace pellumar {
namespace {

constexpr int kDefaultSide = 256;
// They read and decode in turns; more would only take memory.
constexpr int kThreads = 2;

constexpr auto kEncoding = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

class Response : public QQuickImageResponse {
  public:
    // Called once, on a thread of the provider's. The engine deletes this after the signal, in its
    // own thread, and never before. It listens for the signal only once it has this: so that comes
    // by way of the thread that asked, or it could be over before, and the picture never shown.
    void make(const ThumbnailStore& store, const QUrl& file, int side) {
        const auto path = localPath(file);
        if (path && !isCancelled_) {
            image_ = store.thumbnail(*path, side);
        }
        if (image_.isNull()) {
            // No fault: an icon is shown instead.
            image_ = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
            image_.fill(Qt::transparent);
        }
        QMetaObject::invokeMethod(this, "finished", Qt::QueuedConnection);
    }

    void cancel() override { isCancelled_ = true; }

    [[nodiscard]] QQuickTextureFactory* textureFactory() const override {
        return QQuickTextureFactory::textureFactoryForImage(image_);
    }

  private:
    QImage image_;
    std::atomic<bool> isCancelled_ = false;
};

}  // namespace

ThumbnailProvider::ThumbnailProvider(const ThumbnailStore& store) : store_(store) {
    threads_.setMaxThreadCount(kThreads);
}

ThumbnailProvider::~ThumbnailProvider() {
    threads_.waitForDone();
}

bool ThumbnailProvider::waitForDone(std::chrono::milliseconds timeout) {
    return threads_.waitForDone(static_cast<int>(timeout.count()));
}

QString ThumbnailProvider::source(const QUrl& file) {
    return "image://" + name() + '/' + QString::fromLatin1(file.toEncoded().toBase64(kEncoding));
}

QQuickImageResponse* ThumbnailProvider::requestImageResponse(const QString& id,
                                                             const QSize& requestedSize) {
    const QUrl file = QUrl::fromEncoded(QByteArray::fromBase64(id.toLatin1(), kEncoding));
    const int wanted = std::max(requestedSize.width(), requestedSize.height());
    auto* const response = new Response;
    threads_.start(
        [this, response, file, side = wanted > 0 ? wanted : kDefaultSide] {
            response->make(store_, file, side);
        },
        ++requests_);
    return response;
}

}  // namespace pellumar
