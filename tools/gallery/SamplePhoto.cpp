#include "gallery/SamplePhoto.h"

#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

namespace pellumar::gallery {
namespace {

// What is painted, before it is brought to size.
constexpr int kSide = 240;
constexpr int kStep = 60;

}  // namespace

QImage paintPhoto(int number, QSize size) {
    QRandomGenerator random(static_cast<quint32>(number));
    const auto hue = static_cast<float>(random.generateDouble());
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(size.width() / qreal(kSide), size.height() / qreal(kSide));
    QLinearGradient sky(0, 0, 0, kSide);
    sky.setColorAt(0, QColor::fromHsvF(hue, 0.5F, 0.95F));
    sky.setColorAt(1, QColor::fromHsvF(hue, 0.15F, 1));
    painter.fillRect(0, 0, kSide, kSide, sky);
    painter.setBrush(QColor::fromHsvF(0.11F, 0.35F, 1));
    painter.drawEllipse(random.bounded(30, 170), random.bounded(20, 90), 44, 44);
    for (int layer = 0; layer < 3; ++layer) {
        QPainterPath hills(QPointF(0, kSide));
        for (int x = 0; x <= kSide; x += kStep) {
            hills.lineTo(x, 120 + 35 * layer + random.bounded(-25, 25));
        }
        hills.lineTo(kSide, kSide);
        painter.setBrush(QColor::fromHsvF(hue, 0.45F, 0.65F - 0.17F * static_cast<float>(layer)));
        painter.drawPath(hills);
    }
    return image;
}

}  // namespace pellumar::gallery
