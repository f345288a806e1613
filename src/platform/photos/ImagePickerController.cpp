#include "platform/photos/ImagePickerController.h"

#include <utility>

namespace pellumar {

ImagePickerController::ImagePickerController(const UIContext& context,
                                             const PhotoServices& services,
                                             FinishHandler onFinish)
    : AssetPickerController(context,
                            services,
                            {PHAssetMediaType::kImage},
                            PhotoGridModel::kNoLimit),
      onFinish_(std::move(onFinish)) {}

void ImagePickerController::finish(const std::vector<PHAsset>& assets) {
    dismissSelf(true, [onFinish = onFinish_, assets] {
        if (!assets.empty()) {
            onFinish(assets);
        }
    });
}

}  // namespace pellumar
