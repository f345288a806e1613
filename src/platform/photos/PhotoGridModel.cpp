#include "platform/photos/PhotoGridModel.h"

#include <QCoreApplication>
#include <algorithm>
#include <numeric>
#include <set>

#include "platform/FileUrl.h"
#include "platform/NaturalOrder.h"
#include "platform/TextList.h"
#include "platform/documents/ThumbnailProvider.h"

namespace pellumar {

void PhotoGridModel::setAssets(std::vector<PHAsset> assets) {
    assets_ = std::move(assets);
    selected_.clear();
    findAlbums();
    setAlbum(0);
}

void PhotoGridModel::findAlbums() {
    std::set<std::filesystem::path> all;
    for (const PHAsset& asset : assets_) {
        all.insert(asset.file.parent_path());
    }
    const std::vector<std::filesystem::path> folders(all.begin(), all.end());
    std::vector<std::string> names;
    names.reserve(folders.size());
    for (const auto& folder : folders) {
        names.push_back(folder.filename().native());
    }
    albums_.clear();
    for (const std::size_t position : naturalOrder(names)) {
        albums_.push_back({QString::fromStdString(names[position]), folders[position]});
    }
}

QStringList PhotoGridModel::albumNames() const {
    return QStringList(QCoreApplication::translate("PhotoGridModel", "All")) +
           textList(albums_, &Album::name);
}

void PhotoGridModel::setAlbum(int album) {
    if (album < 0 || static_cast<std::size_t>(album) > albums_.size()) {
        return;
    }
    beginResetModel();
    album_ = album;
    rows_.resize(assets_.size());
    std::iota(rows_.begin(), rows_.end(), 0U);
    if (album > 0) {
        const auto& folder = albums_[static_cast<std::size_t>(album) - 1].folder;
        rows_.erase(std::remove_if(rows_.begin(),
                                   rows_.end(),
                                   [this, &folder](std::size_t asset) {
                                       return assets_[asset].file.parent_path() != folder;
                                   }),
                    rows_.end());
    }
    endResetModel();
}

void PhotoGridModel::toggle(int row) {
    if (row < 0 || row >= rowCount()) {
        return;
    }
    const std::size_t asset = rows_[static_cast<std::size_t>(row)];
    const auto place = std::find(selected_.begin(), selected_.end(), asset);
    if (place != selected_.end()) {
        selected_.erase(place);
    } else if (!isFull()) {
        selected_.push_back(asset);
    } else {
        return;
    }
    // Those that were selected later have other numbers now.
    emit dataChanged(index(0), index(rowCount() - 1), {kIsSelected, kOrdinal});
}

std::vector<PHAsset> PhotoGridModel::selectedAssets() const {
    std::vector<PHAsset> assets;
    for (const std::size_t asset : selected_) {
        assets.push_back(assets_[asset]);
    }
    return assets;
}

int PhotoGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant PhotoGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const std::size_t number = rows_[static_cast<std::size_t>(index.row())];
    const PHAsset& asset = assets_[number];
    const auto place = std::find(selected_.begin(), selected_.end(), number);
    switch (role) {
        case kThumbnail:
            return ThumbnailProvider::source(fileUrl(asset.file));
        case kName:
            return QString::fromStdString(asset.file.filename().native());
        case kIsVideo:
            return asset.mediaType == PHAssetMediaType::kVideo;
        case kIsSelected:
            return place != selected_.end();
        case kOrdinal:
            return static_cast<int>(place - selected_.begin()) + 1;
        default:
            return {};
    }
}

QHash<int, QByteArray> PhotoGridModel::roleNames() const {
    return {{kThumbnail, "thumbnail"},
            {kName, "name"},
            {kIsVideo, "isVideo"},
            {kIsSelected, "isSelected"},
            {kOrdinal, "ordinal"}};
}

}  // namespace pellumar
