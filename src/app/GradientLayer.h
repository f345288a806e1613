#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace pellumar {

// Paints a gradient from top to bottom.
class GradientLayer : public QQuickPaintedItem {
    Q_OBJECT

  public:
    // On top of what `host` holds, with its size at this moment and from then on. The host owns it.
    GradientLayer(QQuickItem& host, const QColor& top, const QColor& bottom);

    void paint(QPainter* painter) override;

  private:
    const QColor top_;
    const QColor bottom_;
};

}  // namespace pellumar
