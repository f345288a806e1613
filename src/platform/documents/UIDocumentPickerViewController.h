#pragma once

#include <QList>
#include <QSettings>
#include <QStringList>
#include <QUrl>
#include <filesystem>
#include <memory>

#include "platform/documents/DocumentInbox.h"
#include "platform/documents/FolderModel.h"
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
    DispatchQueue& backgroundQueue;
    // Remembers the folder of the last pick.
    QSettings& memory;
};

// Lets the user pick files, of which the application gets copies (import mode), or a folder to put
// something into. Types: "public.zip-archive" for archives, "public.item" for any file,
// "public.folder" for a folder, which is handed out itself. Starts where the last pick was made.
class UIDocumentPickerViewController : public pellumar::UIViewController {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UIDocumentPickerViewController)
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(pellumar::FolderModel* model READ model CONSTANT)
    Q_PROPERTY(QString heading READ heading CONSTANT)
    Q_PROPERTY(QString confirmTitle READ confirmTitle CONSTANT)
    Q_PROPERTY(bool canConfirm READ canConfirm NOTIFY confirmChanged)
    Q_PROPERTY(bool allowsMultipleSelection READ allowsMultipleSelection CONSTANT)
    Q_PROPERTY(QString folderName READ folderName NOTIFY folderChanged)
    Q_PROPERTY(bool canGoUp READ canGoUp NOTIFY folderChanged)
    Q_PROPERTY(QStringList placeNames READ placeNames CONSTANT)
    Q_PROPERTY(QStringList placeIcons READ placeIcons CONSTANT)
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

    // Opens the folder of a row, or selects the file; a single file is picked at once.
    Q_INVOKABLE void rowTapped(int row);
    Q_INVOKABLE void upTapped();
    Q_INVOKABLE void placeTapped(int place);
    Q_INVOKABLE void confirmTapped();
    Q_INVOKABLE void cancelTapped();

    [[nodiscard]] FolderModel* model() { return &model_; }
    [[nodiscard]] QString heading() const;
    [[nodiscard]] QString confirmTitle() const;
    [[nodiscard]] bool canConfirm() const;
    [[nodiscard]] QString folderName() const;
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
    void failureChanged();

  protected:
    void viewDidLoad() override;

  private:
    struct Place {
        QString name;
        QString icon;
        std::filesystem::path folder;
    };

    [[nodiscard]] static std::vector<Place> findPlaces();
    [[nodiscard]] bool picksFolder() const;
    void open(const std::filesystem::path& folder);
    void import(const QList<QUrl>& urls);
    void finish(const QList<QUrl>& urls);

    const DocumentServices services_;
    const QStringList types_;
    const bool several_;
    const std::vector<Place> places_;
    FolderModel model_;
    std::weak_ptr<UIDocumentPickerDelegate> delegate_;
    std::shared_ptr<DocumentInbox::Import> import_;
    std::shared_ptr<MBProgressHUD> hud_;
    QString failure_;
};

}  // namespace pellumar
