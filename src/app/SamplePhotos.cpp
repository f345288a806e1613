#include "app/SamplePhotos.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

namespace pellumar {
namespace {

constexpr int kCount = 23;
// So small that the desktop's thumbnail cache keeps nothing of them.
constexpr int kSide = 240;
const char* const kFolders[] = {"Camera", "Holiday"};

}  // namespace

SamplePhotos::SamplePhotos(const PhotoServices& real)
    : real_(real), library_({folder_.path().toStdString()}) {
    for (const char* const name : kFolders) {
        QDir(folder_.path()).mkdir(name);
    }
    for (int number = 0; number < kCount; ++number) {
        paint(number);
    }
    QFile video(folder_.filePath(QStringLiteral("Camera/clip.mp4")));
    static_cast<void>(video.open(QIODevice::WriteOnly));
}

// A sun over hills, of a colour and at an hour of its own.
void SamplePhotos::paint(int number) const {
    QRandomGenerator random(static_cast<quint32>(number));
    const auto hue = static_cast<float>(random.generateDouble());
    QImage image(kSide, kSide, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QLinearGradient sky(0, 0, 0, kSide);
    sky.setColorAt(0, QColor::fromHsvF(hue, 0.5F, 0.95F));
    sky.setColorAt(1, QColor::fromHsvF(hue, 0.15F, 1));
    painter.fillRect(image.rect(), sky);
    painter.setBrush(QColor::fromHsvF(0.11F, 0.35F, 1));
    painter.drawEllipse(random.bounded(30, 170), random.bounded(20, 90), 44, 44);
    for (int layer = 0; layer < 3; ++layer) {
        QPainterPath hills(QPointF(0, kSide));
        for (int x = 0; x <= kSide; x += 60) {
            hills.lineTo(x, 120 + 35 * layer + random.bounded(-25, 25));
        }
        hills.lineTo(kSide, kSide);
        painter.setBrush(QColor::fromHsvF(hue, 0.45F, 0.65F - 0.17F * static_cast<float>(layer)));
        painter.drawPath(hills);
    }
    painter.end();
    const QString name = QStringLiteral("%1/%2.png").arg(kFolders[number % 2]).arg(number);
    image.save(folder_.filePath(name));
}

}  // namespace pellumar
