#pragma once

#include <QList>
#include <QRectF>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/documents/UIDocumentPickerViewController.h"
#include "platform/kit/MBProgressHUD.h"
#include "platform/kit/UIViewController.h"
#include "platform/sharing/ShareTarget.h"
#include "platform/sharing/SharedItems.h"

namespace pellumar {

// What share sheets work with. All of it must outlive them.
struct SharingServices {
    const DocumentServices& documents;
    const std::vector<std::shared_ptr<ShareTarget>>& targets;
    const SharedItems& sharedItems;
};

// The share sheet: shows files and the ways that they can leave. Saving them into a folder of the
// user's is its own; the other ways come from the services.
class UIActivityViewController : public pellumar::UIViewController,
                                 public UIDocumentPickerDelegate {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UIActivityViewController)
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QString heading READ heading CONSTANT)
    Q_PROPERTY(QString detail READ detail CONSTANT)
    Q_PROPERTY(QString iconName READ iconName CONSTANT)
    Q_PROPERTY(QStringList titles READ titles CONSTANT)
    Q_PROPERTY(QStringList icons READ icons CONSTANT)
    Q_PROPERTY(QString failure READ failure NOTIFY failureChanged)

  public:
    // `activityType` is nothing if none was chosen. No target of ours changes the items.
    using CompletionWithItems = std::function<void(const std::optional<QString>& activityType,
                                                   bool completed,
                                                   const std::optional<QList<QUrl>>& returnedItems,
                                                   const std::optional<QString>& error)>;

    UIActivityViewController(const UIContext& context,
                             const SharingServices& services,
                             QList<QUrl> activityItems);
    ~UIActivityViewController() override;

    // Before the view is loaded.
    void setExcludedActivityTypes(const QStringList& types);
    [[nodiscard]] const QStringList& excludedActivityTypes() const { return excluded_; }
    // Where a popover is anchored, in the presenting view. Phones have none.
    void setPopoverSourceRect(const QRectF& rect) { sourceRect_ = rect; }
    [[nodiscard]] const std::optional<QRectF>& popoverSourceRect() const { return sourceRect_; }
    // Called exactly once, when the sheet has gone.
    void setCompletionWithItemsHandler(CompletionWithItems handler) {
        handler_ = std::move(handler);
    }

    [[nodiscard]] const QList<QUrl>& activityItems() const { return items_; }
    // The kinds that the sheet offers, in its order.
    [[nodiscard]] QStringList offeredActivityTypes() const;

    // A target by its position; another tap while one works does nothing.
    Q_INVOKABLE void targetTapped(int index);
    Q_INVOKABLE void cancelTapped();
    bool goBack() override;

    void documentPickerDidPickDocuments(const QList<QUrl>& urls) override;

    [[nodiscard]] QString heading() const;
    [[nodiscard]] QString detail() const;
    [[nodiscard]] QString iconName() const;
    [[nodiscard]] QStringList titles() const;
    [[nodiscard]] QStringList icons() const;
    [[nodiscard]] QString failure() const { return failure_; }

  signals:
    void failureChanged();

  private:
    class SaveTarget;

    void perform(const std::shared_ptr<ShareTarget>& target, const QList<QUrl>& kept);
    void chooseFolder();
    void save(const QUrl& folder);
    void finish(const std::optional<QString>& activityType, bool completed);
    void showFailure(const QString& failure);

    const SharingServices services_;
    const QList<QUrl> items_;
    std::vector<std::shared_ptr<ShareTarget>> targets_;
    QStringList excluded_;
    std::optional<QRectF> sourceRect_;
    CompletionWithItems handler_;
    std::shared_ptr<MBProgressHUD> hud_;
    // Set while files are saved; a sheet that goes stops that.
    std::shared_ptr<DocumentInbox::Import> saving_;
    QString failure_;
    bool isBusy_ = false;
};

}  // namespace pellumar
