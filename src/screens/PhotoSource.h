#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Console.h"
#include "platform/photos/PhotoServices.h"

namespace pellumar {

// Turns assets of the photo library into what archives are made of. Both ways ask for all assets at
// once in the background, and complete on the main queue.
class PhotoSource {
  public:
    // All must outlive every request, not only this.
    PhotoSource(const PhotoServices& services, Console& console)
        : services_(services), console_(console) {}

    // The assets of these identifiers, in their order; those that are gone are left out. Writes
    // what it does to the console.
    [[nodiscard]] std::vector<PHAsset> assets(const QStringList& identifiers) const;

    // The files with the originals, in the order in which they came: fewer than assets if some
    // could not be had. An asset that is neither photo nor video keeps this from completing.
    void fetchFiles(const std::vector<PHAsset>& assets,
                    const std::function<void(const QList<QUrl>&)>& completion) const;

    // The assets as images, in the order in which they came. Completes only when each has given its
    // final one: never, if one cannot, as it is stored elsewhere.
    using Images = std::vector<std::shared_ptr<const Image>>;
    void renderImages(const std::vector<PHAsset>& assets,
                      const std::function<void(const Images&)>& completion) const;

  private:
    const PhotoServices services_;
    Console& console_;
};

}  // namespace pellumar
