#pragma once

#include <QImage>
#include <QSize>

namespace pellumar::gallery {

// A sun over hills: the same for the same number, and another for each other.
[[nodiscard]] QImage paintPhoto(int number, QSize size);

}  // namespace pellumar::gallery
