#pragma once

#include <QList>
#include <QSettings>
#include <QStringList>
#include <QUrl>
#include <filesystem>
#include <memory>

#include "platform/documents/DocumentInbox.h"
#include "platform/documents/FolderModel.h"
#include "platform/documents/PickedFiles.h"
#include "platform/documents/PickerPlaces.h"
#include "platform/kit/MBProgressHUD.h"
#include "platform/kit/UIViewController.h"

namespace pellumar {

class UIDocumentPickerDelegate {
  public:
    virtual ~UIDocumentPickerDelegate() = default;

    // The copies of what was picked, when the picker has gone.
    virtual void documentPickerDidPickDocuments(const QList<QUrl>& urls) = 0;
    // The user has picked nothing, and the picker has gone.
    virtual void documentPickerWasCancelled() {}
};

// What pickers work with. All of it must outlive them.
struct DocumentServices {
    DocumentInbox& inbox;
    DispatchQueue& mainQueue;
    // For work with the user's folders, which may hang.
    DispatchQueue& backgroundQueue;
    FolderQueue& folders;
    // Remembers the folders of the last picks.
    QSettings& memory;
};

// Lets the user pick files, of which the application gets copies (import mode), or a folder to put
// something into. Types: "public.zip-archive" for archives, "public.item" for any file,
// "public.folder" for a folder, which is handed out itself. Starts where the last pick of the same
// kind was made. Looks into no folder on the main thread.
class UIDocumentPickerViewController : public pellumar::UIViewController {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UIDocumentPickerViewController)
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(pellumar::FolderModel* model READ model CONSTANT)
    Q_PROPERTY(pellumar::PickedFiles* picked READ picked CONSTANT)
    Q_PROPERTY(QString heading READ heading CONSTANT)
    Q_PROPERTY(QString confirmTitle READ confirmTitle NOTIFY confirmChanged)
    Q_PROPERTY(bool canConfirm READ canConfirm NOTIFY confirmChanged)
    Q_PROPERTY(bool allowsMultipleSelection READ allowsMultipleSelection CONSTANT)
    Q_PROPERTY(bool picksFolder READ picksFolder CONSTANT)
    Q_PROPERTY(QString folderName READ folderName NOTIFY folderChanged)
    // The folders that lead to this one, and it.
    Q_PROPERTY(QStringList way READ way NOTIFY folderChanged)
    Q_PROPERTY(bool canGoUp READ canGoUp NOTIFY folderChanged)
    Q_PROPERTY(QStringList placeNames READ placeNames NOTIFY placesChanged)
    Q_PROPERTY(QStringList placeIcons READ placeIcons NOTIFY placesChanged)
    Q_PROPERTY(int currentPlace READ currentPlace NOTIFY folderChanged)
    Q_PROPERTY(QString failure READ failure NOTIFY failureChanged)

  public:
    UIDocumentPickerViewController(const UIContext& context,
                                   const DocumentServices& services,
                                   QStringList documentTypes,
                                   bool allowsMultipleSelection);
    ~UIDocumentPickerViewController() override;

    // Held weakly.
    void setDelegate(const std::weak_ptr<UIDocumentPickerDelegate>& delegate) {
        delegate_ = delegate;
    }
    [[nodiscard]] const QStringList& documentTypes() const { return types_; }
    [[nodiscard]] bool allowsMultipleSelection() const { return several_; }

    // Opens the folder of a row, or selects the file, or no longer; a single file is picked at
    // once.
    Q_INVOKABLE void rowTapped(int row);
    Q_INVOKABLE void selectAllTapped();
    Q_INVOKABLE void upTapped();
    Q_INVOKABLE void placeTapped(int place);
    // A step of the way.
    Q_INVOKABLE void stepTapped(int step);
    Q_INVOKABLE void newFolderTapped();
    Q_INVOKABLE void confirmTapped();
    Q_INVOKABLE void cancelTapped();

    [[nodiscard]] FolderModel* model() { return &model_; }
    [[nodiscard]] PickedFiles* picked() { return &picked_; }
    [[nodiscard]] QString heading() const;
    [[nodiscard]] QString confirmTitle() const;
    [[nodiscard]] bool canConfirm() const;
    [[nodiscard]] bool picksFolder() const;
    [[nodiscard]] QString folderName() const;
    [[nodiscard]] QStringList way() const;
    [[nodiscard]] bool canGoUp() const {
        return model_.folder().has_parent_path() && model_.folder() != model_.folder().root_path();
    }
    [[nodiscard]] QStringList placeNames() const;
    [[nodiscard]] QStringList placeIcons() const;
    [[nodiscard]] int currentPlace() const;
    [[nodiscard]] QString failure() const { return failure_; }

    bool goBack() override;

  signals:
    void confirmChanged();
    void folderChanged();
    void placesChanged();
    void failureChanged();
    // The list has come, and begins best with this row: the folder that was just left, or the
    // first.
    void listed(int row);

  protected:
    void viewDidLoad() override;

  private:
    enum class State { kChoosing, kImporting, kDone };

    [[nodiscard]] QString memoryKey() const;
    void open(const std::filesystem::path& folder);
    void listingChanged();
    void makeFolder(const QString& name);
    void import(const QList<QUrl>& urls);
    void imported(const tl::expected<QList<QUrl>, QString>& copies);
    void finish(const QList<QUrl>& urls);
    void setFailure(const QString& failure);

    const DocumentServices services_;
    const QStringList types_;
    const bool several_;
    PickerPlaces places_;
    PickedFiles picked_;
    FolderModel model_;
    std::weak_ptr<UIDocumentPickerDelegate> delegate_;
    State state_ = State::kChoosing;
    std::shared_ptr<DocumentInbox::Import> import_;
    std::shared_ptr<MBProgressHUD> hud_;
    QString failure_;
    // The name of the folder that was left for the one above it.
    std::string cameFrom_;
    // The remembered folder, which may be gone, is left for the home folder then.
    bool isFirstFolder_ = true;
};

}  // namespace pellumar
