#include "platform/sharing/ItemSaving.h"

#include <QCoreApplication>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/DisplayText.h"
#include "platform/FileUrl.h"
#include "platform/kit/Notice.h"
#include "platform/kit/UIWindow.h"
#include "platform/sharing/ShowInFiles.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

class SavingWords {
    Q_DECLARE_TR_FUNCTIONS(SavingWords)
};

QString nameOf(const fs::path& path) {
    return isolated(QString::fromStdString(withoutTrailingSlash(path).filename()));
}

QString failureText(const FileCopyError& error, const fs::path& folder) {
    const bool isOfFolder = error.path == folder;
    if (error.reason == std::errc::no_space_on_device) {
        return SavingWords::tr("There is not enough room in %1").arg(nameOf(folder));
    }
    if (error.reason == std::errc::no_such_file_or_directory) {
        return SavingWords::tr("%1 is no longer there").arg(nameOf(error.path));
    }
    if (isOfFolder && (error.reason == std::errc::permission_denied ||
                       error.reason == std::errc::operation_not_permitted ||
                       error.reason == std::errc::read_only_file_system)) {
        return SavingWords::tr("Nothing can be saved in %1. Choose another folder.")
            .arg(nameOf(folder));
    }
    return SavingWords::tr("%1 could not be saved: %2")
        .arg(nameOf(error.path), QString::fromStdString(error.reason.message()));
}

}  // namespace

std::shared_ptr<ItemSaving> ItemSaving::start(UIViewController& screen,
                                              const DocumentServices& documents,
                                              Order order,
                                              Completion completion) {
    std::shared_ptr<ItemSaving> saving(
        new ItemSaving(screen, documents, std::move(order), std::move(completion)));
    const auto picker = makeController<UIDocumentPickerViewController>(
        screen.context(), documents, QStringList{QStringLiteral("public.folder")}, false);
    picker->setDelegate(saving);
    screen.present(picker, true);
    return saving;
}

ItemSaving::ItemSaving(UIViewController& screen,
                       const DocumentServices& documents,
                       Order order,
                       Completion completion)
    : screen_(screen.weak_from_this()),
      documents_(documents),
      order_(std::move(order)),
      completion_(std::move(completion)),
      isGoingOn_(std::make_shared<std::atomic<bool>>(true)) {}

ItemSaving::~ItemSaving() {
    *isGoingOn_ = false;
    if (hud_) {
        hud_->hide(true);
    }
}

void ItemSaving::documentPickerDidPickDocuments(const QList<QUrl>& urls) {
    const auto screen = screen_.lock();
    const std::optional<fs::path> folder = urls.isEmpty() ? std::nullopt : localPath(urls.first());
    if (!screen || !folder) {
        end({});
        return;
    }
    hud_ = MBProgressHUD::showAddedTo(screen->context(), screen->view(), true);
    hud_->setLabel(SavingWords::tr("Saving"));
    if (UIWindow* const window = screen->window()) {
        occupied_ = window->occupy();
    }
    documents_.backgroundQueue.async([self = weak_from_this(),
                                      order = order_,
                                      folder = *folder,
                                      isGoingOn = isGoingOn_,
                                      &mainQueue = documents_.mainQueue] {
        const ItemSaver saver([isGoingOn] { return isGoingOn->load(); });
        mainQueue.async([self, folder, result = saver.save(order.items, folder, order.newFolder)] {
            if (const auto saving = self.lock()) {
                saving->finish(folder, result);
            }
        });
    });
}

void ItemSaving::documentPickerWasCancelled() {
    end({});
}

void ItemSaving::finish(const fs::path& folder, const ItemSaver::Result& result) {
    std::exchange(hud_, nullptr)->hide(true);
    // Until the failure is told.
    const auto occupied = std::exchange(occupied_, nullptr);
    if (result) {
        sayThatItIsSaved(order_.newFolder.isEmpty() || result->isEmpty()
                             ? folder
                             : localPath(result->first())->parent_path(),
                         *result);
        end({.saved = *result, .failure = {}});
    } else {
        end({.saved = {}, .failure = failureText(result.error(), folder)});
    }
}

void ItemSaving::end(const Outcome& outcome) {
    if (const Completion completion = std::exchange(completion_, {})) {
        completion(outcome);
    }
}

void ItemSaving::sayThatItIsSaved(const fs::path& folder, const QList<QUrl>& saved) const {
    const auto screen = screen_.lock();
    if (!screen || screen->window() == nullptr) {
        return;
    }
    const QString what =
        saved.size() == 1 ? nameOf(*localPath(saved.first()))
                          : SavingWords::tr("%Ln files", nullptr, static_cast<int>(saved.size()));
    Notice::show(*screen->window(),
                 SavingWords::tr("Saved %1 to %2").arg(what, nameOf(folder)),
                 showInFilesAction(saved));
}

}  // namespace pellumar
