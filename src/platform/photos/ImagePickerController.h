#pragma once

#include <functional>

#include "platform/photos/AssetPickerController.h"

namespace pellumar {

// The picker of times before the system had one: for photos only, as many as the user likes.
class ImagePickerController : public AssetPickerController {
    Q_OBJECT

  public:
    using FinishHandler = std::function<void(const std::vector<PHAsset>&)>;

    // `onFinish` gets what was picked, in the order of the picking, when the picker has gone; it is
    // not called for a cancelled pick.
    ImagePickerController(const UIContext& context,
                          const PhotoServices& services,
                          FinishHandler onFinish);

  protected:
    void finish(const std::vector<PHAsset>& assets) override;

  private:
    const FinishHandler onFinish_;
};

}  // namespace pellumar
