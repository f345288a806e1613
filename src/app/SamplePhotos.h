#pragma once

#include <QTemporaryDir>

#include "platform/photos/PhotoServices.h"

namespace pellumar {

// A photo library to show, painted for it and gone with it.
class SamplePhotos {
  public:
    // Everything but the library is that of `real`.
    explicit SamplePhotos(const PhotoServices& real);

    [[nodiscard]] PhotoServices services() const {
        return {library_, real_.images, real_.mainQueue, real_.backgroundQueue};
    }

  private:
    void paint(int number) const;

    const PhotoServices real_;
    const QTemporaryDir folder_;
    const PHPhotoLibrary library_;
};

}  // namespace pellumar
