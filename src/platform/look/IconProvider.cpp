#include "platform/look/IconProvider.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace pellumar {

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const QString name = id.section('/', 0, 0);
    const QString color = id.section('/', 1, 1);
    QFile file(":/qt-project.org/imports/Pellumar/Look/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QByteArray drawing = file.readAll();
    if (!color.isEmpty()) {
        drawing.replace("currentColor", '#' + color.toLatin1());
    }
    QSvgRenderer renderer(drawing);
    const QSize wanted = requestedSize.isValid() && !requestedSize.isEmpty()
                             ? requestedSize
                             : renderer.defaultSize();
    QImage image(wanted, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    if (size != nullptr) {
        *size = wanted;
    }
    return image;
}

}  // namespace pellumar
