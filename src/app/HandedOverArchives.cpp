#include "app/HandedOverArchives.h"

#include "engine/AppFileOpener.h"
#include "platform/FileUrl.h"
#include "platform/kit/UIAlertController.h"

namespace pellumar {
namespace {

QString whyRefused(const QString& name) {
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
    // Later: what the end of a question or of a job brings comes before the next question.
    connect(&environment.window,
            &UIWindow::screensChanged,
            this,
            &HandedOverArchives::passOn,
            Qt::QueuedConnection);
}

void HandedOverArchives::add(const QList<QUrl>& urls) {
    waiting_.insert(waiting_.end(), urls.begin(), urls.end());
    passOn();
    if (!waiting_.empty() && environment_.window.isOccupied()) {
        sayThatTheyWait();
    }
}

void HandedOverArchives::passOn() {
    if (environment_.window.rootViewController() == nullptr) {
        fillSlotAtStart();
        return;
    }
    while (!waiting_.empty() && isFree()) {
        const QUrl next = waiting_.front();
        waiting_.pop_front();
        if (saidToWait_) {
            saidToWait_->close();
        }
        if (!environment_.delegate.applicationOpen(next)) {
            tell(whyRefused(lastPathComponent(next)));
        }
    }
}

bool HandedOverArchives::isFree() const {
    return !AppFileOpener::url() && environment_.window.isIdle();
}

// What is refused is told once there is a screen.
void HandedOverArchives::fillSlotAtStart() {
    for (auto each = waiting_.begin(); each != waiting_.end() && !AppFileOpener::url(); ++each) {
        if (environment_.delegate.applicationOpen(*each)) {
            waiting_.erase(each);
            return;
        }
    }
}

void HandedOverArchives::sayThatTheyWait() {
    Notice::show(environment_.ui,
                 environment_.window,
                 waiting_.size() == 1
                     ? tr("“%1” is next, when this is done").arg(lastPathComponent(waiting_[0]))
                     : tr("%1 archives are next, when this is done").arg(waiting_.size()));
    saidToWait_ = Notice::shownIn(environment_.window);
}

void HandedOverArchives::tell(const QString& words) {
    const auto alert =
        makeController<UIAlertController>(environment_.ui, tr("Cannot unzip this"), words);
    alert->addAction({tr("OK"), UIAlertActionStyle::kDefault, {}});
    environment_.window.rootViewController()->present(alert, true);
}

}  // namespace pellumar
