#include "platform/look/RingArc.h"

#include <QPainter>
#include <algorithm>

namespace pellumar {
namespace {

// QPainter counts sixteenths of a degree, from three o'clock on and against the clock.
constexpr int kTop = 90 * 16;
constexpr int kWhole = 360 * 16;

}  // namespace

RingArc::RingArc(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void RingArc::paint(QPainter* painter) {
    // A little space, so that the smoothed edge is not cut off.
    const qreal inset = thickness_ / 2 + 1;
    const QRectF ring = boundingRect().adjusted(inset, inset, -inset, -inset);
    painter->setPen(QPen(trackColor_, thickness_));
    painter->drawEllipse(ring);
    painter->setPen(QPen(color_, thickness_, Qt::SolidLine, Qt::RoundCap));
    painter->drawArc(ring, kTop, -static_cast<int>(std::clamp(part_, 0.0, 1.0) * kWhole));
}

}  // namespace pellumar
