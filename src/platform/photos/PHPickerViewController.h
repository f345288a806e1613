#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "platform/photos/AssetPickerController.h"
#include "platform/photos/PHPickerConfiguration.h"

namespace pellumar {

class PHPickerViewController;

struct PHPickerResult {
    std::optional<QString> assetIdentifier;
};

class PHPickerViewControllerDelegate {
  public:
    virtual ~PHPickerViewControllerDelegate() = default;

    // What was picked, in the order of the picking; nothing if the pick was cancelled. The picker
    // is still presented: the delegate dismisses it.
    virtual void pickerDidFinishPicking(const std::shared_ptr<PHPickerViewController>& picker,
                                        const QList<PHPickerResult>& results) = 0;
};

// The system's picker of photos and videos.
class PHPickerViewController : public AssetPickerController {
    Q_OBJECT

  public:
    PHPickerViewController(const UIContext& context,
                           const PhotoServices& services,
                           const PHPickerConfiguration& configuration);

    // Held weakly.
    void setDelegate(const std::weak_ptr<PHPickerViewControllerDelegate>& delegate) {
        delegate_ = delegate;
    }

  protected:
    void finish(const std::vector<PHAsset>& assets) override;

  private:
    const bool tellsIdentifiers_;
    std::weak_ptr<PHPickerViewControllerDelegate> delegate_;
};

}  // namespace pellumar
