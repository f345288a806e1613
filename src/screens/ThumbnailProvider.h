#pragma once

#include <QQuickAsyncImageProvider>

namespace pellumar {

// Small pictures of image files, decoded in the background at no more than their size in sight. The
// id is the file's URL in URL-safe Base64. What cannot be decoded comes out as one transparent
// dot.
class ThumbnailProvider : public QQuickAsyncImageProvider {
  public:
    QQuickImageResponse* requestImageResponse(const QString& id,
                                              const QSize& requestedSize) override;
};

}  // namespace pellumar
