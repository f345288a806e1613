#include "platform/photos/PHPickerViewController.h"

namespace pellumar {

PHPickerViewController::PHPickerViewController(const UIContext& context,
                                               const PhotoServices& services,
                                               const PHPickerConfiguration& configuration)
    : AssetPickerController(context, services, configuration.filter, configuration.selectionLimit),
      tellsIdentifiers_(configuration.isBoundToLibrary) {}

void PHPickerViewController::finish(const std::vector<PHAsset>& assets) {
    QList<PHPickerResult> results;
    for (const PHAsset& asset : assets) {
        results.append({tellsIdentifiers_ ? std::optional(asset.localIdentifier) : std::nullopt});
    }
    if (const auto told = delegate_.lock()) {
        told->pickerDidFinishPicking(weakly(this).lock(), results);
    }
}

}  // namespace pellumar
