#include "app/GradientLayer.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

namespace pellumar {

GradientLayer::GradientLayer(QQuickItem& host, const QColor& top, const QColor& bottom)
    : QQuickItem(&host), top_(top), bottom_(bottom) {
    setFlag(ItemHasContents);
    const auto fill = [this, &host] { setSize(host.size()); };
    connect(&host, &QQuickItem::widthChanged, this, fill);
    connect(&host, &QQuickItem::heightChanged, this, fill);
    fill();
}

QSGNode* GradientLayer::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/) {
    auto* node = static_cast<QSGImageNode*>(old);
    if (node == nullptr) {
        // One column is enough; the scene graph stretches it, on every renderer.
        QImage column(1, 256, QImage::Format_RGB32);
        QLinearGradient gradient(0, 0, 0, column.height());
        gradient.setColorAt(0, top_);
        gradient.setColorAt(1, bottom_);
        QPainter(&column).fillRect(column.rect(), gradient);
        node = window()->createImageNode();
        node->setTexture(window()->createTextureFromImage(column));
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
    }
    node->setRect(boundingRect());
    return node;
}

}  // namespace pellumar
