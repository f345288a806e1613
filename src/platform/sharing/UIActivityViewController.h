#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Question.h"
#include "platform/documents/UIDocumentPickerViewController.h"
#include "platform/kit/UIViewController.h"
#include "platform/sharing/ItemSaving.h"
#include "platform/sharing/ItemSummary.h"
#include "platform/sharing/ShareTarget.h"
#include "platform/sharing/SharedItems.h"

namespace pellumar {

// What share sheets work with. All of it must outlive them.
struct SharingServices {
    const DocumentServices& documents;
    const std::vector<ShareTarget>& targets;
    const SharedItems& sharedItems;

    // Gives the items second names in the background, for a target that is read later: `kept` gets
    // those, or for a person why there are none.
    [[nodiscard]] Question keep(
        const QList<QUrl>& items,
        std::function<void(const tl::expected<QList<QUrl>, QString>& items)> kept) const;
};

// The share sheet: shows files and the ways that they can leave: saving them into a folder of the
// user's, and what the services have beside that. What is no longer there is not offered; to know,
// the items are looked at in the background, and the ways come when that is done.
class UIActivityViewController : public pellumar::UIViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QString heading READ heading NOTIFY summaryChanged)
    Q_PROPERTY(QString detail READ detail NOTIFY summaryChanged)
    Q_PROPERTY(QString iconName READ iconName NOTIFY summaryChanged)
    Q_PROPERTY(QStringList titles READ titles NOTIFY summaryChanged)
    Q_PROPERTY(QStringList icons READ icons NOTIFY summaryChanged)
    Q_PROPERTY(QString failure READ failure NOTIFY failureChanged)

  public:
    // `activityType` is what was done, or has failed last when the sheet was closed without;
    // nothing if neither was. `returnedItems` are the saved files of a saving, nothing otherwise.
    // `error` is what has failed, for a person.
    using CompletionWithItems = std::function<void(const std::optional<QString>& activityType,
                                                   bool completed,
                                                   const std::optional<QList<QUrl>>& returnedItems,
                                                   const std::optional<QString>& error)>;

    UIActivityViewController(const UIContext& context,
                             const SharingServices& services,
                             QList<QUrl> activityItems);

    // Before the view is loaded.
    void setExcludedActivityTypes(const QStringList& types) { excluded_ = types; }
    [[nodiscard]] const QStringList& excludedActivityTypes() const { return excluded_; }
    // Called once, when the sheet has gone; never if it is taken away with all that is in the
    // window, as when the program ends.
    void setCompletionWithItemsHandler(CompletionWithItems handler) {
        handler_ = std::move(handler);
    }

    [[nodiscard]] const QList<QUrl>& activityItems() const { return items_; }
    // The kinds that the sheet offers, in its order; none before the items have been looked at.
    [[nodiscard]] QStringList offeredActivityTypes() const;

    // A target by its position; another tap while one works does nothing.
    Q_INVOKABLE void targetTapped(int index);
    Q_INVOKABLE void cancelTapped();
    bool goBack() override;

    [[nodiscard]] QString heading() const;
    [[nodiscard]] QString detail() const;
    [[nodiscard]] QString iconName() const;
    [[nodiscard]] QStringList titles() const;
    [[nodiscard]] QStringList icons() const;
    [[nodiscard]] QString failure() const { return failure_; }

  signals:
    void summaryChanged();
    void failureChanged();

  protected:
    void viewDidLoad() override;

  private:
    void offer(const ItemSummary& summary);
    [[nodiscard]] ShareTarget saveTo();
    void perform(const ShareTarget& target, const QList<QUrl>& items);
    void end(const QString& activityType, const ShareTarget::Result& result);
    void finish(const std::optional<QString>& activityType, const ShareTarget::Result& result);
    void showFailure(const QString& failure);

    const SharingServices services_;
    const QList<QUrl> items_;
    std::vector<ShareTarget> targets_;
    QStringList excluded_;
    CompletionWithItems handler_;
    // Nothing before the items have been looked at.
    std::optional<ItemSummary> summary_;
    // What has failed last, and why.
    std::optional<QString> failed_;
    QString failure_;
    bool isBusy_ = false;
    bool isFinished_ = false;
    // What it is about, and what is being saved: neither goes on without it.
    Question question_;
    std::shared_ptr<ItemSaving> saving_;
};

}  // namespace pellumar
