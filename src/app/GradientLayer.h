#pragma once

#include <QColor>
#include <QQuickItem>

namespace pellumar {

// Paints a gradient from top to bottom.
class GradientLayer : public QQuickItem {
    Q_OBJECT

  public:
    // On top of what `host` holds, with its size at this moment and from then on. The host owns it.
    GradientLayer(QQuickItem& host, const QColor& top, const QColor& bottom);

  protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;

  private:
    const QColor top_;
    const QColor bottom_;
};

}  // namespace pellumar
