#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <QDateTime>
#include <QSet>
#include <QStringList>
#include <QUrl>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/DispatchQueue.h"

namespace pellumar {

// What of a folder can be picked, as a list: folders first, then by name. It is read in the
// background. For the main thread.
class FolderModel : public QAbstractListModel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FolderModel)
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a picker")
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY loadingChanged)
    Q_PROPERTY(bool isUnreadable READ isUnreadable NOTIFY loadingChanged)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)

  public:
    enum Role { kName = Qt::UserRole, kDetail, kIconName, kIsFolder, kIsSelected, kIsPickable };

    // `types` as a document picker takes them. The queues must outlive every listing.
    FolderModel(QStringList types, DispatchQueue& mainQueue, DispatchQueue& backgroundQueue);
    ~FolderModel() override;

    // Goes to a folder; the list is empty until that is read, and the selection is dropped.
    void setFolder(const std::filesystem::path& folder);
    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

    [[nodiscard]] bool isLoading() const { return isLoading_; }
    [[nodiscard]] bool isUnreadable() const { return isUnreadable_; }

    // Selects a row that can be picked, or deselects it if it was. Without `several` it is selected
    // in any case, and the others are not.
    void toggle(int row, bool several);
    [[nodiscard]] int selectedCount() const { return static_cast<int>(selected_.size()); }
    // In the order of the list.
    [[nodiscard]] QList<QUrl> selectedUrls() const;
    [[nodiscard]] bool isFolder(int row) const;
    [[nodiscard]] std::filesystem::path path(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  signals:
    void loadingChanged();
    void selectionChanged();

  private:
    struct Row {
        std::string name;
        QString shownName;
        QDateTime changed;
        std::uint64_t size = 0;
        bool isFolder = false;
    };
    struct Listing {
        std::vector<Row> rows;
        bool isUnreadable = false;
    };

    [[nodiscard]] static Listing read(const std::filesystem::path& folder,
                                      const QStringList& types);
    static void sort(std::vector<Row>& rows);
    void take(Listing listing);

    const QStringList types_;
    DispatchQueue& mainQueue_;
    DispatchQueue& backgroundQueue_;
    // The latest listing is the one that counts; the others find this gone.
    std::shared_ptr<FolderModel*> latest_;
    std::filesystem::path folder_;
    std::vector<Row> rows_;
    QSet<int> selected_;
    bool isLoading_ = false;
    bool isUnreadable_ = false;
};

}  // namespace pellumar
