#pragma once

#include <QQuickAsyncImageProvider>
#include <QString>
#include <QThreadPool>
#include <QUrl>
#include <atomic>
#include <chrono>

#include "platform/documents/ThumbnailStore.h"

namespace pellumar {

// Small pictures of files, made in the background, the last asked for first: what has just come
// into view is what the user looks at. What there is no picture of comes out as one transparent
// dot.
class ThumbnailProvider : public QQuickAsyncImageProvider {
  public:
    // The name under which engines know this.
    static QString name() { return QStringLiteral("thumbnail"); }
    // What an Image shows to show a file's picture.
    [[nodiscard]] static QString source(const QUrl& file);

    // `store` must outlive this.
    explicit ThumbnailProvider(const ThumbnailStore& store);
    ~ThumbnailProvider() override;
    ThumbnailProvider(const ThumbnailProvider&) = delete;
    ThumbnailProvider& operator=(const ThumbnailProvider&) = delete;

    QQuickImageResponse* requestImageResponse(const QString& id,
                                              const QSize& requestedSize) override;

    // Waits until no picture is being made; false if it does not come to that in time. The
    // destructor waits as long as it takes.
    [[nodiscard]] bool waitForDone(std::chrono::milliseconds timeout);

  private:
    const ThumbnailStore& store_;
    QThreadPool threads_;
    std::atomic<int> requests_ = 0;
};

}  // namespace pellumar
