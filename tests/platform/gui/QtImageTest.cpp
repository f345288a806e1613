#include "platform/gui/QtImage.h"

#include <gtest/gtest.h>

namespace pellumar {
namespace {

QImage pattern(QImage::Format format) {
    QImage image(64, 48, format);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, qRgb(x * 4, y * 5, (x * y) % 256));
        }
    }
    return image;
}

TEST(QtImage, EncodesAsJpegAtTheQualityAskedFor) {
    const QtImage image(pattern(QImage::Format_RGB32));
    const QByteArray half = image.jpegData(0.5);
    const QImage decoded = QImage::fromData(half, "JPEG");
    EXPECT_EQ(decoded.size(), QSize(64, 48));
    EXPECT_LT(image.jpegData(0.1).size(), half.size());
    EXPECT_LT(half.size(), image.jpegData(1.0).size());
}

TEST(QtImage, IsEmptyIfItCannotBeEncoded) {
    EXPECT_TRUE(QtImage(QImage()).jpegData(0.5).isEmpty());
    // JPEG has 16 bits for a width.
    EXPECT_TRUE(QtImage(QImage(70000, 1, QImage::Format_RGB32)).jpegData(0.5).isEmpty());
}

TEST(QtImage, TurnsTransparentIntoWhite) {
    QImage clear(16, 16, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    const QImage decoded = QImage::fromData(QtImage(clear).jpegData(0.9));
    EXPECT_GT(qGray(decoded.pixel(8, 8)), 250);
}

}  // namespace
}  // namespace pellumar
