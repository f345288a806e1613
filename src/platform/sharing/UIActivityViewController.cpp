#include "platform/sharing/UIActivityViewController.h"

#include <utility>

#include "platform/DisplayText.h"
#include "platform/TextList.h"
#include "platform/kit/Notice.h"
#include "platform/kit/UIWindow.h"
#include "platform/sharing/SaveToTarget.h"

namespace pellumar {
namespace {

// What cannot be kept for others is not handed to them: they would lose it.
QString failureText(const FileCopyError& error) {
    return UIActivityViewController::tr("%1 could not be handed on: %2")
        .arg(QString::fromStdString(error.path.filename().string()),
             QString::fromStdString(error.reason.message()));
}

}  // namespace

UIActivityViewController::UIActivityViewController(const UIContext& context,
                                                   const SharingServices& services,
                                                   QList<QUrl> activityItems)
    : UIViewController(context), services_(services), items_(std::move(activityItems)) {}

void UIActivityViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    services_.documents.backgroundQueue.async(
        [self = weakly(this), items = items_, &mainQueue = services_.documents.mainQueue] {
            mainQueue.async([self, summary = ItemSummary::of(items)] {
                if (const auto sheet = self.lock()) {
                    sheet->offer(summary);
                }
            });
        });
}

void UIActivityViewController::offer(const ItemSummary& summary) {
    summary_ = summary;
    std::vector<std::shared_ptr<ShareTarget>> all{
        std::make_shared<SaveToTarget>(weakly(this), context(), services_.documents)};
    all.insert(all.end(), services_.targets.begin(), services_.targets.end());
    for (const auto& target : all) {
        if (!summary.items.isEmpty() && !excluded_.contains(target->activityType()) &&
            target->canPerform(summary)) {
            targets_.push_back(target);
        }
    }
    emit summaryChanged();
}

QStringList UIActivityViewController::offeredActivityTypes() const {
    return textList(targets_, [](const auto& target) { return target->activityType(); });
}

void UIActivityViewController::targetTapped(int index) {
    if (isBusy_ || index < 0 || static_cast<std::size_t>(index) >= targets_.size()) {
        return;
    }
    isBusy_ = true;
    showFailure({});
    const std::shared_ptr<ShareTarget> target = targets_[static_cast<std::size_t>(index)];
    if (!target->isReadLater()) {
        perform(*target, summary_->items);
        return;
    }
    // A folder with many files takes a moment.
    services_.documents.backgroundQueue.async([self = weakly(this),
                                               target,
                                               items = summary_->items,
                                               &shared = services_.sharedItems,
                                               &mainQueue = services_.documents.mainQueue] {
        mainQueue.async([self, target, kept = shared.keep(items)] {
            const auto sheet = self.lock();
            if (sheet && kept) {
                sheet->perform(*target, *kept);
            } else if (sheet) {
                sheet->end(target->activityType(), {.error = failureText(kept.error())});
            }
        });
    });
}

void UIActivityViewController::perform(ShareTarget& target, const QList<QUrl>& items) {
    target.perform(
        items,
        [self = weakly(this), type = target.activityType()](const ShareTarget::Result& result) {
            if (const auto sheet = self.lock()) {
                sheet->end(type, result);
            }
        });
}

void UIActivityViewController::end(const QString& activityType, const ShareTarget::Result& result) {
    if (isFinished_) {
        return;
    }
    isBusy_ = false;
    if (result.isCompleted) {
        if (!result.notice.isEmpty() && window() != nullptr) {
            Notice::show(context(), *window(), result.notice);
        }
        finish(activityType, result);
    } else if (!result.error.isEmpty()) {
        failed_ = activityType;
        showFailure(result.error);
    }
}

void UIActivityViewController::cancelTapped() {
    finish(failure_.isEmpty() ? std::nullopt : failed_, {.error = failure_});
}

bool UIActivityViewController::goBack() {
    cancelTapped();
    return true;
}

void UIActivityViewController::finish(const std::optional<QString>& activityType,
                                      const ShareTarget::Result& result) {
    if (std::exchange(isFinished_, true)) {
        return;
    }
    // With them goes what one of them is still saving.
    targets_.clear();
    dismissSelf(true, [handler = std::exchange(handler_, {}), activityType, result] {
        if (handler) {
            handler(activityType,
                    result.isCompleted,
                    result.returnedItems,
                    result.error.isEmpty() ? std::nullopt : std::optional(result.error));
        }
    });
}

void UIActivityViewController::showFailure(const QString& failure) {
    if (failure_ != failure) {
        failure_ = failure;
        emit failureChanged();
    }
}

QString UIActivityViewController::heading() const {
    const QList<QUrl>& shown = summary_ && !summary_->items.isEmpty() ? summary_->items : items_;
    if (shown.isEmpty()) {
        return tr("Nothing to share");
    }
    return shown.size() == 1 ? shown.first().fileName() : tr("%1 items").arg(shown.size());
}

QString UIActivityViewController::detail() const {
    if (!summary_ || items_.isEmpty()) {
        return summary_ ? QString() : tr("One moment…");
    }
    if (summary_->items.isEmpty()) {
        return items_.size() == 1 ? tr("This file is no longer there.")
                                  : tr("These files are no longer there.");
    }
    QStringList parts;
    if (summary_->folders == 0) {
        parts.append(sizeText(summary_->bytes));
    } else if (items_.size() == 1) {
        parts.append(tr("Folder"));
    }
    if (summary_->missing > 0) {
        parts.append(tr("%1 more no longer there").arg(summary_->missing));
    }
    return parts.join(", ");
}

QString UIActivityViewController::iconName() const {
    return summary_ && !summary_->iconName.isEmpty() ? summary_->iconName : QStringLiteral("share");
}

QStringList UIActivityViewController::titles() const {
    return textList(targets_, [](const auto& target) { return target->title(); });
}

QStringList UIActivityViewController::icons() const {
    return textList(targets_, [](const auto& target) { return target->iconName(); });
}

}  // namespace pellumar
