#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <QList>
#include <QUrl>
#include <filesystem>
#include <string>
#include <unordered_set>
#include <vector>

namespace pellumar {

// The files that the user has selected so far, in whichever folders, in the order of the selection.
// For the main thread.
class PickedFiles : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a picker")
    Q_PROPERTY(int count READ count NOTIFY changed)

  public:
    enum Role { kName = Qt::UserRole };

    // Leaves out what is selected already.
    void add(const std::vector<std::filesystem::path>& files);
    void remove(const std::filesystem::path& file);
    Q_INVOKABLE void removeAt(int row);
    void clear();

    [[nodiscard]] bool contains(const std::filesystem::path& file) const;
    [[nodiscard]] int count() const { return static_cast<int>(files_.size()); }
    [[nodiscard]] QList<QUrl> urls() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  signals:
    void changed();

  private:
    std::vector<std::filesystem::path> files_;
    std::unordered_set<std::string> known_;
};

}  // namespace pellumar
