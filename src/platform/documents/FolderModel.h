#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <QStringList>
#include <filesystem>
#include <memory>

#include "platform/DispatchQueue.h"
#include "platform/documents/FolderListing.h"
#include "platform/documents/PickedFiles.h"

namespace pellumar {

// What of a folder can be picked, as a list: folders first, then by name. It is read in the
// background; a folder that does not answer holds up nobody, and can be left for another. For the
// main thread.
class FolderModel : public QAbstractListModel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FolderModel)
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a picker")
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY loadingChanged)
    Q_PROPERTY(bool isUnreadable READ isUnreadable NOTIFY loadingChanged)
    Q_PROPERTY(bool hasHidden READ hasHidden NOTIFY loadingChanged)
    // What is in the folder and not shown, in a sentence; empty if nothing is.
    Q_PROPERTY(QString notShown READ notShown NOTIFY loadingChanged)

  public:
    enum Role { kName = Qt::UserRole, kDetail, kIconName, kIsFolder, kIsSelected };

    // `types` as a document picker takes them. `picked` is shown as selected, and must outlive
    // this, as the queues must every listing.
    FolderModel(QStringList types,
                PickedFiles& picked,
                DispatchQueue& mainQueue,
                FolderQueue& folders);
    ~FolderModel() override;

    // Goes to a folder; the list is empty until that is read.
    void setFolder(const std::filesystem::path& folder);
    [[nodiscard]] const std::filesystem::path& folder() const { return question_.folder; }
    Q_INVOKABLE void showHidden();

    [[nodiscard]] bool isLoading() const { return isLoading_; }
    [[nodiscard]] bool isUnreadable() const { return listing_.isUnreadable; }
    [[nodiscard]] bool hasHidden() const { return listing_.hiddenCount > 0; }
    [[nodiscard]] QString notShown() const;

    // Picks the file of a row, or no longer if it was.
    void toggle(int row);
    // Picks all files.
    void pickAll();
    [[nodiscard]] bool isFolder(int row) const;
    [[nodiscard]] std::filesystem::path path(int row) const;
    // The row of this name, -1 if there is none.
    [[nodiscard]] int rowOf(const std::string& name) const;
    // The first row from `from` on, and then from the first on, whose name begins like this; -1 if
    // there is none.
    Q_INVOKABLE [[nodiscard]] int rowStartingWith(const QString& start, int from) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  signals:
    void loadingChanged();

  private:
    void read();
    void take(FolderListing listing, bool isComplete);

    FolderQuestion question_;
    PickedFiles& picked_;
    DispatchQueue& mainQueue_;
    FolderQueue& folders_;
    // The latest listing is the one that counts; the others find this gone.
    std::shared_ptr<FolderModel*> latest_;
    FolderListing listing_;
    bool isLoading_ = false;
};

}  // namespace pellumar
