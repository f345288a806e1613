#include "app/HandedOverArchives.h"

#include <QPointer>
#include <chrono>
#include <filesystem>
#include <future>
#include <memory>
#include <system_error>

#include "engine/AppFileOpener.h"
#include "platform/FileUrl.h"
#include "platform/kit/UIAlertController.h"

namespace pellumar {
namespace {

// A folder in a network may hang. What cannot be looked at is taken as it is.
constexpr std::chrono::seconds kPatience{1};
// Before there is a screen, when a short wait holds up nothing but its coming.
constexpr std::chrono::milliseconds kPatienceAtStart{100};

// Looks at the file, which may take long; empty if there is one.
QString whyNotThere(const QUrl& url) {
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
    return {};
}

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
    patience_.setSingleShot(true);
    patience_.setInterval(kPatience);
    connect(&patience_, &QTimer::timeout, this, [this] { looked(looks_, {}); });
}

void HandedOverArchives::add(const QList<QUrl>& urls) {
    for (const QUrl& url : urls) {
        waiting_.push_back({url});
    }
    passOn();
    if (!waiting_.empty() && environment_.window.isOccupied()) {
        sayThatTheyWait();
    }
}

void HandedOverArchives::passOn() {
    while (!waiting_.empty() && isFree()) {
        const Waiting next = waiting_.front();
        if (!next.words) {
            lookAtNext();
            continue;
        }
        const bool mayTell = environment_.window.rootViewController() != nullptr;
        if (saidToWait_) {
            saidToWait_->close();
        }
        if (next.words->isEmpty() && environment_.delegate.applicationOpen(next.url)) {
            waiting_.pop_front();
        } else if (mayTell) {
            waiting_.pop_front();
            tell(next.words->isEmpty() ? whyRefused(lastPathComponent(next.url)) : *next.words);
        } else {
            return;
        }
    }
}

bool HandedOverArchives::isFree() const {
    const bool isStarting = environment_.window.rootViewController() == nullptr;
    return !AppFileOpener::url() && !patience_.isActive() &&
           (isStarting || environment_.window.isIdle());
}

void HandedOverArchives::lookAtNext() {
    const QUrl url = waiting_.front().url;
    const auto place = localPath(url).value_or(std::filesystem::path()).parent_path();
    if (!environment_.window.rootViewController()) {
        const auto answer = std::make_shared<std::promise<QString>>();
        std::future<QString> words = answer->get_future();
        environment_.folders.async(place, [answer, url] { answer->set_value(whyNotThere(url)); });
        const bool isKnown = words.wait_for(kPatienceAtStart) == std::future_status::ready;
        waiting_.front().words = isKnown ? words.get() : QString();
        return;
    }
    patience_.start();
    environment_.folders.async(
        place, [self = QPointer(this), url, look = looks_, &mainQueue = environment_.mainQueue] {
            mainQueue.async([self, look, words = whyNotThere(url)] {
                if (self) {
                    self->looked(look, words);
                }
            });
        });
}

void HandedOverArchives::looked(int look, const QString& words) {
    // Too late, perhaps.
    if (look != looks_) {
        return;
    }
    ++looks_;
    patience_.stop();
    waiting_.front().words = words;
    passOn();
}

void HandedOverArchives::sayThatTheyWait() {
    Notice::show(environment_.ui,
                 environment_.window,
                 waiting_.size() == 1
                     ? tr("“%1” is next, when this is done").arg(lastPathComponent(waiting_[0].url))
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
