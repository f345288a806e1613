#include "platform/photos/AssetPickerController.h"

#include <algorithm>
#include <utility>

namespace pellumar {

AssetPickerController::AssetPickerController(const UIContext& context,
                                             const PhotoServices& services,
                                             std::set<PHAssetMediaType> mediaTypes,
                                             int limit)
    : UIViewController(context),
      services_(services),
      mediaTypes_(std::move(mediaTypes)),
      model_(limit) {}

AssetPickerController::~AssetPickerController() {
    *isGone_ = true;
}

void AssetPickerController::viewDidLoad() {
    UIViewController::viewDidLoad();
    // One search after the other: it is the same folders that all of them look through.
    services_.folders.async("photo library",
                            [self = weakly(this),
                             isGone = isGone_,
                             types = mediaTypes_,
                             &library = services_.library,
                             &mainQueue = services_.mainQueue] {
                                std::vector<PHAsset> assets = library.fetchAssets(*isGone);
                                assets.erase(
                                    std::remove_if(assets.begin(),
                                                   assets.end(),
                                                   [&types](const PHAsset& asset) {
                                                       return types.count(asset.mediaType) == 0;
                                                   }),
                                    assets.end());
                                mainQueue.async([self, assets = std::move(assets)] {
                                    if (const auto picker = self.lock()) {
                                        picker->model_.setAssets(assets);
                                        picker->isLoading_ = false;
                                        emit picker->loaded();
                                        emit picker->albumChanged();
                                    }
                                });
                            });
}

void AssetPickerController::albumTapped(int album) {
    model_.setAlbum(album);
    emit albumChanged();
}

void AssetPickerController::assetTapped(int row) {
    model_.toggle(row);
    emit selectionChanged();
}

QString AssetPickerController::counter() const {
    const int count = selectedCount();
    if (count == 0) {
        return {};
    }
    return model_.limit() == PhotoGridModel::kNoLimit
               ? tr("%Ln selected", nullptr, count)
               : tr("%L1 of %L2").arg(count).arg(model_.limit());
}

void AssetPickerController::confirmTapped() {
    if (selectedCount() > 0) {
        end(model_.selectedAssets());
    }
}

void AssetPickerController::cancelTapped() {
    end({});
}

void AssetPickerController::end(const std::vector<PHAsset>& assets) {
    if (!std::exchange(isFinished_, true)) {
        finish(assets);
    }
}

bool AssetPickerController::goBack() {
    cancelTapped();
    return true;
}

}  // namespace pellumar
