#include "app/GradientLayer.h"

#include <QLinearGradient>
#include <QPainter>

namespace pellumar {

GradientLayer::GradientLayer(QQuickItem& host, const QColor& top, const QColor& bottom)
    : QQuickPaintedItem(&host), top_(top), bottom_(bottom) {
    const auto fill = [this, &host] { setSize(host.size()); };
    connect(&host, &QQuickItem::widthChanged, this, fill);
    connect(&host, &QQuickItem::heightChanged, this, fill);
    fill();
}

void GradientLayer::paint(QPainter* painter) {
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, top_);
    gradient.setColorAt(1, bottom_);
    painter->fillRect(boundingRect(), gradient);
}

}  // namespace pellumar
