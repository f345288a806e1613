#include "app/HandedOverArchives.h"

#include <QPointer>
#include <chrono>
#include <filesystem>
#include <system_error>

#include "engine/AppFileOpener.h"
#include "platform/FileUrl.h"
#include "platform/kit/UIAlertController.h"
#include "screens/ConfirmationPopupViewController.h"

namespace pellumar {
namespace {

// A folder in a network may hang, and the archives behind are not to wait for it.
constexpr std::chrono::seconds kPatience{1};

// Looks at the file, which may take long.
QString whyRefused(const QUrl& url) {
    const QString name = lastPathComponent(url);
    const auto path = localPath(url);
    if (!path) {
        return HandedOverArchives::tr(
                   "“%1” is not a file on this device. Save it here first, then open it.")
            .arg(name.isEmpty() ? url.toDisplayString() : name);
    }
    std::error_code unknown;
    const auto type = std::filesystem::status(*path, unknown).type();
    if (type == std::filesystem::file_type::not_found) {
        return HandedOverArchives::tr(
                   "“%1” is not there. It may have been moved or deleted: find it, and open it "
                   "from where it is now.")
            .arg(name);
    }
    if (type == std::filesystem::file_type::directory) {
        return HandedOverArchives::tr(
                   "“%1” is a folder, not an archive. Open the archive that you want to unzip.")
            .arg(name);
    }
    if (name.contains(QStringLiteral(".zip"), Qt::CaseInsensitive)) {
        return HandedOverArchives::tr(
                   "“%1” has its ending in capital letters. Rename it to end in “.zip”, and open "
                   "it again.")
            .arg(name);
    }
    return HandedOverArchives::tr(
               "“%1” is not named as a ZIP archive. If it is one, rename it to end in “.zip”; "
               "archives of other kinds need another application.")
        .arg(name);
}

}  // namespace

HandedOverArchives::HandedOverArchives(const Environment& environment) : environment_(environment) {
    // Later: what the end of a question brings comes before the next question.
    connect(&environment.window,
            &UIWindow::screensChanged,
            this,
            &HandedOverArchives::passOn,
            Qt::QueuedConnection);
    patience_.setSingleShot(true);
    patience_.setInterval(kPatience);
    connect(&patience_, &QTimer::timeout, this, &HandedOverArchives::passOn);
}

void HandedOverArchives::add(const QList<QUrl>& urls) {
    for (const QUrl& url : urls) {
        waiting_.push_back({url, {}});
    }
    passOn();
}

void HandedOverArchives::passOn() {
    while (!waiting_.empty() && isFree()) {
        const Waiting next = waiting_.front();
        if (next.words.isEmpty()) {
            waiting_.pop_front();
            if (!environment_.delegate.applicationOpen(next.url)) {
                findWordsFor(next.url);
            }
        } else if (environment_.window.rootViewController()) {
            waiting_.pop_front();
            tell(next.words);
        } else {
            return;
        }
    }
}

bool HandedOverArchives::isFree() const {
    if (AppFileOpener::url() || patience_.isActive()) {
        return false;
    }
    const auto root = environment_.window.rootViewController();
    for (auto each = root; each; each = each->presentedViewController()) {
        const bool isAsking = each == told_.lock() ||
                              dynamic_cast<ConfirmationPopupViewController*>(each.get()) != nullptr;
        // What is presented while the topmost leaves would come later, and not in its turn.
        if (isAsking || (!each->presentedViewController() && each->transition().isLeaving())) {
            return false;
        }
    }
    return true;
}

void HandedOverArchives::findWordsFor(const QUrl& url) {
    refused_ = url;
    patience_.start();
    environment_.backgroundQueue.async(
        [self = QPointer(this), url, &mainQueue = environment_.mainQueue] {
            mainQueue.async([self, url, words = whyRefused(url)] {
                if (self) {
                    self->waiting_.push_front({{}, words});
                    if (self->refused_ == url) {
                        self->patience_.stop();
                    }
                    self->passOn();
                }
            });
        });
}

void HandedOverArchives::tell(const QString& words) {
    const auto alert =
        makeController<UIAlertController>(environment_.ui, tr("This cannot be unzipped"), words);
    alert->addAction({tr("OK"), UIAlertActionStyle::kDefault, {}});
    told_ = alert;
    environment_.window.rootViewController()->present(alert, true);
}

}  // namespace pellumar
