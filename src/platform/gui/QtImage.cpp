#include "platform/gui/QtImage.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <QtMath>

namespace pellumar {
namespace {

QImage withoutTransparency(const QImage& image) {
    if (!image.hasAlphaChannel()) {
        return image;
    }
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter(&opaque).drawImage(QRect(QPoint(0, 0), image.size()), image);
    return opaque;
}

}  // namespace

QByteArray QtImage::jpegData(double quality) const {
    constexpr int kBestQuality = 100;
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QImageWriter writer(&file, "jpeg");
    writer.setQuality(qRound(qBound(0.0, quality, 1.0) * kBestQuality));
    return writer.write(withoutTransparency(image_)) ? file.data() : QByteArray();
}

}  // namespace pellumar
