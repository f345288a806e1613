#include "platform/sharing/UIActivityViewController.h"

#include <QFileInfo>
#include <algorithm>
#include <utility>

#include "platform/DisplayText.h"
#include "platform/FileUrl.h"
#include "platform/documents/FileCopy.h"
#include "platform/documents/UIDocumentInteractionController.h"
#include "platform/sharing/ActivityType.h"

namespace pellumar {
namespace {

// Copies one after the other; the first failure ends it. Only what lies in files of this machine
// can be saved.
std::optional<FileCopyError> saveAll(const QList<QUrl>& items,
                                     const QUrl& folder,
                                     const DocumentInbox::Import& saving) {
    const auto isGoingOn = [&saving](std::uint64_t) { return !saving.isCancelled(); };
    const auto to = localPath(folder);
    for (const QUrl& item : items) {
        const auto from = localPath(item);
        if (!from || !to) {
            const QUrl& foreign = from ? folder : item;
            return FileCopyError{foreign.toString().toStdString(),
                                 std::make_error_code(std::errc::not_supported)};
        }
        const auto copied = copyTree(*from, freePath(*to, from->filename()), isGoingOn);
        if (!copied) {
            return copied.error();
        }
    }
    return std::nullopt;
}

}  // namespace

// Saving is listed like the other ways; choosing the folder is the sheet's.
class UIActivityViewController::SaveTarget : public ShareTarget {
  public:
    [[nodiscard]] QString activityType() const override { return activity::kSaveTo; }
    [[nodiscard]] QString title() const override { return tr("Save to…"); }
    [[nodiscard]] QString iconName() const override { return QStringLiteral("save"); }
    [[nodiscard]] bool canPerform(const QList<QUrl>& urls) const override {
        return !urls.isEmpty();
    }
    void perform(const QList<QUrl>& /*urls*/, const Done& done) override { done({}); }
};

UIActivityViewController::UIActivityViewController(const UIContext& context,
                                                   const SharingServices& services,
                                                   QList<QUrl> activityItems)
    : UIViewController(context), services_(services), items_(std::move(activityItems)) {
    setExcludedActivityTypes({});
}

UIActivityViewController::~UIActivityViewController() {
    if (saving_) {
        saving_->cancel();
    }
}

void UIActivityViewController::setExcludedActivityTypes(const QStringList& types) {
    excluded_ = types;
    targets_.clear();
    const auto offer = [this](const std::shared_ptr<ShareTarget>& target) {
        if (!excluded_.contains(target->activityType()) && target->canPerform(items_)) {
            targets_.push_back(target);
        }
    };
    offer(std::make_shared<SaveTarget>());
    std::for_each(services_.targets.begin(), services_.targets.end(), offer);
}

QStringList UIActivityViewController::offeredActivityTypes() const {
    QStringList types;
    for (const auto& target : targets_) {
        types.append(target->activityType());
    }
    return types;
}

void UIActivityViewController::targetTapped(int index) {
    if (isBusy_ || index < 0 || static_cast<std::size_t>(index) >= targets_.size()) {
        return;
    }
    const std::shared_ptr<ShareTarget> target = targets_[static_cast<std::size_t>(index)];
    showFailure({});
    if (target->activityType() == activity::kSaveTo) {
        chooseFolder();
        return;
    }
    isBusy_ = true;
    // A folder with many files takes a moment.
    services_.documents.backgroundQueue.async([self = weakly(this),
                                               target,
                                               items = items_,
                                               &shared = services_.sharedItems,
                                               &mainQueue = services_.documents.mainQueue] {
        mainQueue.async([self, target, kept = shared.keep(items)] {
            if (const auto sheet = self.lock()) {
                sheet->perform(target, kept);
            }
        });
    });
}

void UIActivityViewController::perform(const std::shared_ptr<ShareTarget>& target,
                                       const QList<QUrl>& kept) {
    const auto self = weakly(this);
    target->perform(kept, [self, target](const ShareTarget::Result& result) {
        const auto sheet = self.lock();
        if (!sheet) {
            return;
        }
        sheet->isBusy_ = false;
        if (result.isCompleted) {
            sheet->finish(target->activityType(), true);
        } else {
            sheet->showFailure(result.error);
        }
    });
}

void UIActivityViewController::chooseFolder() {
    const auto picker = makeController<UIDocumentPickerViewController>(
        context(), services_.documents, QStringList{QStringLiteral("public.folder")}, false);
    picker->setDelegate(weakly(this));
    present(picker, true);
}

void UIActivityViewController::documentPickerDidPickDocuments(const QList<QUrl>& urls) {
    if (!urls.isEmpty()) {
        save(urls.first());
    }
}

void UIActivityViewController::save(const QUrl& folder) {
    isBusy_ = true;
    hud_ = MBProgressHUD::showAddedTo(context(), view(), true);
    hud_->setLabel(tr("Saving"));
    saving_ = std::make_shared<DocumentInbox::Import>();
    const auto finished = [self = weakly(this)](const std::optional<FileCopyError>& error) {
        const auto sheet = self.lock();
        if (!sheet) {
            return;
        }
        sheet->isBusy_ = false;
        sheet->hud_->hide(true);
        if (error) {
            sheet->showFailure(tr("%1 could not be saved: %2")
                                   .arg(QString::fromStdString(error->path.filename().string()),
                                        QString::fromStdString(error->reason.message())));
        } else {
            sheet->finish(activity::kSaveTo, true);
        }
    };
    services_.documents.backgroundQueue.async([items = items_,
                                               folder,
                                               saving = saving_,
                                               finished,
                                               &mainQueue = services_.documents.mainQueue] {
        const std::optional<FileCopyError> error = saveAll(items, folder, *saving);
        mainQueue.async([finished, error] { finished(error); });
    });
}

void UIActivityViewController::cancelTapped() {
    if (saving_ && isBusy_) {
        saving_->cancel();
    }
    finish(std::nullopt, false);
}

bool UIActivityViewController::goBack() {
    cancelTapped();
    return true;
}

void UIActivityViewController::finish(const std::optional<QString>& activityType, bool completed) {
    dismiss(true, [handler = std::exchange(handler_, {}), activityType, completed] {
        if (handler) {
            handler(activityType, completed, std::nullopt, std::nullopt);
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
    if (items_.isEmpty()) {
        return tr("Nothing to share");
    }
    return items_.size() == 1 ? items_.first().fileName() : tr("%1 items").arg(items_.size());
}

QString UIActivityViewController::detail() const {
    // Thousands would take long, and nobody adds them up.
    constexpr qsizetype kMostSummed = 200;
    qint64 bytes = 0;
    for (const QUrl& url : items_.first(std::min(items_.size(), kMostSummed))) {
        const QFileInfo info(url.toLocalFile());
        if (!info.isFile()) {
            return items_.size() == 1 && info.isDir() ? tr("Folder") : QString();
        }
        bytes += info.size();
    }
    return items_.isEmpty() || items_.size() > kMostSummed ? QString() : sizeText(bytes);
}

QString UIActivityViewController::iconName() const {
    return items_.isEmpty() ? QStringLiteral("share")
                            : UIDocumentInteractionController(items_.first()).icons().last();
}

QStringList UIActivityViewController::titles() const {
    QStringList titles;
    for (const auto& target : targets_) {
        titles.append(target->title());
    }
    return titles;
}

QStringList UIActivityViewController::icons() const {
    QStringList icons;
    for (const auto& target : targets_) {
        icons.append(target->iconName());
    }
    return icons;
}

}  // namespace pellumar
