#pragma once

#include <QQuickImageProvider>

namespace pellumar {

// Draws the theme's icons in any colour and size: the id is "NAME/RRGGBB". An icon whose colours
// are its own has an id without one. What does not exist comes out empty.
class IconProvider : public QQuickImageProvider {
  public:
    IconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

}  // namespace pellumar
