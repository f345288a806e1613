#pragma once

#include <QAbstractListModel>
#include <QStringList>
#include <filesystem>
#include <vector>

#include "platform/photos/PHAsset.h"

namespace pellumar {

// The assets of one album, or of all, and which of all of them are selected, in which order. For
// the main thread.
class PhotoGridModel : public QAbstractListModel {
    Q_OBJECT

  public:
    enum Role { kThumbnail = Qt::UserRole, kName, kIsVideo, kIsSelected, kOrdinal };

    static constexpr int kNoLimit = -1;

    // At most `limit` assets can be selected.
    explicit PhotoGridModel(int limit) : limit_(limit) {}

    // Nothing is selected, and all are shown.
    void setAssets(std::vector<PHAsset> assets);
    // The names of the albums: everything first, then the folders by their names.
    [[nodiscard]] QStringList albumNames() const;
    [[nodiscard]] int album() const { return album_; }
    void setAlbum(int album);

    // Selects the asset of a row, or no longer. Does nothing if the limit is reached.
    void toggle(int row);
    [[nodiscard]] int selectedCount() const { return static_cast<int>(selected_.size()); }
    [[nodiscard]] bool isFull() const { return limit_ != kNoLimit && selectedCount() >= limit_; }
    [[nodiscard]] int limit() const { return limit_; }
    // In the order in which they were selected.
    [[nodiscard]] std::vector<PHAsset> selectedAssets() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  private:
    struct Album {
        QString name;
        std::filesystem::path folder;
    };

    void findAlbums();

    const int limit_;
    std::vector<PHAsset> assets_;
    std::vector<Album> albums_;
    int album_ = 0;
    // Positions in assets_.
    std::vector<std::size_t> rows_;
    std::vector<std::size_t> selected_;
};

}  // namespace pellumar
