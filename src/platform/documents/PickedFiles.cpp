#include "platform/documents/PickedFiles.h"

#include <algorithm>

#include "platform/FileUrl.h"

namespace pellumar {

void PickedFiles::add(const std::vector<std::filesystem::path>& files) {
    std::vector<std::filesystem::path> added;
    for (const std::filesystem::path& file : files) {
        if (known_.insert(file.native()).second) {
            added.push_back(file);
        }
    }
    if (!added.empty()) {
        beginInsertRows({}, count(), count() + static_cast<int>(added.size()) - 1);
        files_.insert(files_.end(), added.begin(), added.end());
        endInsertRows();
        emit changed();
    }
}

void PickedFiles::remove(const std::filesystem::path& file) {
    removeAt(static_cast<int>(std::find(files_.begin(), files_.end(), file) - files_.begin()));
}

void PickedFiles::removeAt(int row) {
    if (row >= 0 && row < count()) {
        beginRemoveRows({}, row, row);
        known_.erase(files_[static_cast<std::size_t>(row)].native());
        files_.erase(files_.begin() + row);
        endRemoveRows();
        emit changed();
    }
}

void PickedFiles::clear() {
    beginResetModel();
    files_.clear();
    known_.clear();
    endResetModel();
    emit changed();
}

bool PickedFiles::contains(const std::filesystem::path& file) const {
    return known_.count(file.native()) > 0;
}

QList<QUrl> PickedFiles::urls() const {
    QList<QUrl> urls;
    for (const std::filesystem::path& file : files_) {
        urls.append(fileUrl(file));
    }
    return urls;
}

int PickedFiles::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant PickedFiles::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= count() || role != kName) {
        return {};
    }
    const auto& file = files_[static_cast<std::size_t>(index.row())];
    return QString::fromStdString(file.filename().native());
}

QHash<int, QByteArray> PickedFiles::roleNames() const {
    return {{kName, "name"}};
}

}  // namespace pellumar
