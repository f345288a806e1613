#include "app/HandedOverArchives.h"

#include "engine/AppFileOpener.h"
#include "platform/DisplayText.h"
#include "platform/FileUrl.h"
#include "platform/kit/UIAlertController.h"

namespace pellumar {
namespace {

QString whyRefused(const QString& name) {
    if (name.contains(QStringLiteral(".zip"), Qt::CaseInsensitive)) {
        return HandedOverArchives::tr(
                   "“%1” has its ending in capital letters. Rename it to end in “.zip”, and open "
                   "it again.")
            .arg(isolated(name));
    }
    return HandedOverArchives::tr(
               "“%1” is not named as a ZIP archive. If it is one, rename it to end in “.zip”; "
               "archives of other kinds need another application.")
        .arg(isolated(name));
}

}  // namespace

HandedOverArchives::HandedOverArchives(AppDelegate& delegate, UIWindow& window)
    : delegate_(delegate), window_(window) {
    // Later: what the end of a question or of a job brings comes before the next question.
    connect(&window,
            &UIWindow::screensChanged,
            this,
            &HandedOverArchives::passOn,
            Qt::QueuedConnection);
}

void HandedOverArchives::add(const QList<QUrl>& urls) {
    waiting_.insert(waiting_.end(), urls.begin(), urls.end());
    passOn();
    if (!waiting_.empty() && window_.isOccupied()) {
        sayThatTheyWait();
    }
}

void HandedOverArchives::passOn() {
    if (window_.rootViewController() == nullptr) {
        fillSlotAtStart();
        return;
    }
    while (!waiting_.empty() && isFree()) {
        const QUrl next = waiting_.front();
        waiting_.pop_front();
        if (saidToWait_) {
            saidToWait_->close();
        }
        if (!delegate_.applicationOpen(next)) {
            tell(whyRefused(lastPathComponent(next)));
        }
    }
}

bool HandedOverArchives::isFree() const {
    return !AppFileOpener::url() && window_.isIdle();
}

// What is refused is told once there is a screen.
void HandedOverArchives::fillSlotAtStart() {
    for (auto each = waiting_.begin(); each != waiting_.end() && !AppFileOpener::url(); ++each) {
        if (delegate_.applicationOpen(*each)) {
            waiting_.erase(each);
            return;
        }
    }
}

void HandedOverArchives::sayThatTheyWait() {
    Notice::show(
        window_,
        waiting_.size() == 1
            ? tr("“%1” is next, when this is done").arg(isolated(lastPathComponent(waiting_[0])))
            : tr("%Ln archives are next, when this is done",
                 nullptr,
                 static_cast<int>(waiting_.size())));
    saidToWait_ = Notice::shownIn(window_);
}

void HandedOverArchives::tell(const QString& words) {
    const auto alert =
        makeController<UIAlertController>(window_.context(), tr("Cannot unzip this"), words);
    alert->addAction({tr("OK"), UIAlertActionStyle::kDefault, {}});
    window_.rootViewController()->present(alert, true);
}

}  // namespace pellumar
