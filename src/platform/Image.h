#pragma once

#include <QByteArray>

namespace pellumar {

// A picture in memory.
class Image {
  public:
    virtual ~Image() = default;

    // The picture as a JPEG file. `quality` is from 0 (smallest) to 1 (best); empty if it cannot be
    // encoded. May be called from any thread, one at a time.
    [[nodiscard]] virtual QByteArray jpegData(double quality) const = 0;
};

}  // namespace pellumar
