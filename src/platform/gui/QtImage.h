#pragma once

#include <QImage>

#include "platform/Image.h"

namespace pellumar {

// A picture that Qt has decoded.
class QtImage : public Image {
  public:
    explicit QtImage(const QImage& image) : image_(image) {}

    // What is transparent comes out white, as JPEG has no transparency.
    [[nodiscard]] QByteArray jpegData(double quality) const override;

  private:
    QImage image_;
};

}  // namespace pellumar
