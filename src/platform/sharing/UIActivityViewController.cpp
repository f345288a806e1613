#include "platform/sharing/UIActivityViewController.h"

#include <utility>

#include "platform/DisplayText.h"
#include "platform/TextList.h"
#include "platform/kit/Notice.h"
#include "platform/kit/UIWindow.h"
#include "platform/sharing/ActivityType.h"

namespace pellumar {

Question SharingServices::keep(
    const QList<QUrl>& items,
    std::function<void(const tl::expected<QList<QUrl>, QString>& items)> kept) const {
    // A folder with many files takes a moment.
    return askInBackground<tl::expected<QList<QUrl>, QString>>(
        documents.mainQueue,
        documents.backgroundQueue,
        [items, &shared = sharedItems](const auto& /*isWanted*/) {
            // What cannot be kept for others is not handed to them: they would lose it.
            return shared.keep(items).map_error([](const FileCopyError& error) {
                return UIActivityViewController::tr("%1 could not be handed on: %2")
                    .arg(isolated(QString::fromStdString(error.path.filename().string())),
                         QString::fromStdString(error.reason.message()));
            });
        },
        std::move(kept));
}

UIActivityViewController::UIActivityViewController(const UIContext& context,
                                                   const SharingServices& services,
                                                   QList<QUrl> activityItems)
    : UIViewController(context), services_(services), items_(std::move(activityItems)) {}

void UIActivityViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    question_ = askInBackground<ItemSummary>(
        services_.documents.mainQueue,
        services_.documents.backgroundQueue,
        [items = items_](const auto& /*isWanted*/) { return ItemSummary::of(items); },
        [this](const ItemSummary& summary) { offer(summary); });
}

ShareTarget UIActivityViewController::saveTo() {
    const auto save = [this](const QList<QUrl>& items, const ShareTarget::Done& done) {
        saving_ = ItemSaving::start(
            *this,
            services_.documents,
            {.items = items, .newFolder = {}},
            [done](const ItemSaving::Outcome& outcome) {
                const bool isSaved = !outcome.saved.isEmpty();
                done({.isCompleted = isSaved,
                      .error = outcome.failure,
                      .returnedItems = isSaved ? std::optional(outcome.saved) : std::nullopt});
            });
    };
    return {.activityType = activity::kSaveTo,
            .title = ShareTarget::tr("Save to…"),
            .iconName = "save",
            .perform = save,
            .isReadLater = false};
}

void UIActivityViewController::offer(const ItemSummary& summary) {
    summary_ = summary;
    std::vector<ShareTarget> all{saveTo()};
    all.insert(all.end(), services_.targets.begin(), services_.targets.end());
    for (const ShareTarget& target : all) {
        if (!summary.items.isEmpty() && !excluded_.contains(target.activityType) &&
            target.canPerform(summary)) {
            targets_.push_back(target);
        }
    }
    emit summaryChanged();
}

QStringList UIActivityViewController::offeredActivityTypes() const {
    return textList(targets_, &ShareTarget::activityType);
}

void UIActivityViewController::targetTapped(int index) {
    if (isBusy_ || index < 0 || static_cast<std::size_t>(index) >= targets_.size()) {
        return;
    }
    isBusy_ = true;
    showFailure({});
    const ShareTarget target = targets_[static_cast<std::size_t>(index)];
    if (!target.isReadLater) {
        perform(target, summary_->items);
        return;
    }
    question_ = services_.keep(summary_->items, [this, target](const auto& items) {
        if (items) {
            perform(target, *items);
        } else {
            end(target.activityType, {.error = items.error()});
        }
    });
}

void UIActivityViewController::perform(const ShareTarget& target, const QList<QUrl>& items) {
    target.perform(
        items,
        [self = weakly(this), type = target.activityType](const ShareTarget::Result& result) {
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
            Notice::show(*window(), result.notice);
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
    question_.reset();
    saving_.reset();
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
    failure_ = failure;
    emit failureChanged();
}

QString UIActivityViewController::heading() const {
    const QList<QUrl>& shown = summary_ && !summary_->items.isEmpty() ? summary_->items : items_;
    if (shown.isEmpty()) {
        return tr("Nothing to share");
    }
    return shown.size() == 1 ? shown.first().fileName()
                             : tr("%Ln items", nullptr, static_cast<int>(shown.size()));
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
        parts.append(tr("%Ln more no longer there", nullptr, static_cast<int>(summary_->missing)));
    }
    return parts.join(", ");
}

QString UIActivityViewController::iconName() const {
    return summary_ && !summary_->iconName.isEmpty() ? summary_->iconName : QStringLiteral("share");
}

QStringList UIActivityViewController::titles() const {
    return textList(targets_, &ShareTarget::title);
}

QStringList UIActivityViewController::icons() const {
    return textList(targets_, &ShareTarget::iconName);
}

}  // namespace pellumar
