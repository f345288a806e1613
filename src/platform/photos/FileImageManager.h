#pragma once

#include <QSemaphore>

#include "platform/documents/ThumbnailStore.h"
#include "platform/photos/PHImageManager.h"

namespace pellumar {

// Assets are files. One whose file lies on a network's file system is stored elsewhere. Everything
// is done in the calling thread, which must be one that may block.
class FileImageManager : public PHImageManager {
  public:
    // `posters` must outlive this. Sets the largest image that Qt decodes in this process, so it
    // is to be made before other threads decode any.
    explicit FileImageManager(const ThumbnailStore& posters);

    void requestContentEditingInput(const PHAsset& photo,
                                    PHRequestOptions options,
                                    const FileAnswer& answer) override;
    void requestVideo(const PHAsset& video,
                      PHRequestOptions options,
                      const FileAnswer& answer) override;
    // One answer. As images are large, only some are made at a time. Formats that Qt cannot read
    // come as large as the desktop's thumbnailers make them.
    void requestImage(const PHAsset& asset,
                      PHRequestOptions options,
                      const ImageAnswer& answer) override;

  private:
    const ThumbnailStore& posters_;
    QSemaphore decoding_;
};

}  // namespace pellumar
