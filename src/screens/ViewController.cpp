#include "screens/ViewController.h"

#include "events/EventNames.h"
#include "platform/kit/UINavigationController.h"
#include "platform/kit/UITabBarController.h"
#include "platform/kit/UIWindow.h"
#include "screens/ConfirmationPopupViewController.h"
#include "screens/UnzipViewController.h"
#include "screens/ZipViewController.h"

namespace pellumar {
namespace {

constexpr qreal kCompactHeight = 580;
constexpr qreal kCompactTop = 3;
constexpr qreal kCompactSecondaryTop = 0;
const QString kLaunchCountKey = QStringLiteral("RELEVANT_ACTION_COUNT_VAR5");

}  // namespace

ViewController::ViewController(const ScreenServices& services, RelevantActionCount& launches)
    : UIViewController(services.ui),
      services_(services),
      launches_(launches),
      zipManager_(ZipManager::create(services.jobs)) {}

void ViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    topConstraint_ = outlet<NSLayoutConstraint>(view(), QStringLiteral("topConstraint"));
    secondaryTopConstraint_ =
        outlet<NSLayoutConstraint>(view(), QStringLiteral("secondaryTopConstraint"));
    AppFileOpener::setDelegate(weakly(this));
    zipManager_->setDelegate(weakly(this));
    setTitle(QStringLiteral("Zip/Unzip"));
}

void ViewController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    const UIWindow* const where = window();
    const bool isCompact = where != nullptr && where->bounds().height() <= kCompactHeight;
    if (isCompact && topConstraint_ && secondaryTopConstraint_) {
        topConstraint_->setConstant(kCompactTop);
        secondaryTopConstraint_->setConstant(kCompactSecondaryTop);
    }
}

void ViewController::viewDidAppear(bool animated) {
    UIViewController::viewDidAppear(animated);
    if (const std::optional<QUrl> url = AppFileOpener::url()) {
        appFileOpenerDidReceive(*url);
    } else {
        askForRating();
    }
    services_.fileSystem.clearZipOutputs();
}

void ViewController::askForRating() {
    UserDefaults& defaults = services_.settings.userDefaults();
    if (defaults.boolForKey(services_.settings.achievedSuccessKey())) {
        services_.review.requestReview();
        return;
    }
    const QString& didRequest = services_.settings.didRequestKey();
    if (launches_.checkRelevantActionCount(kLaunchCountKey) && !defaults.boolForKey(didRequest) &&
        navigationController() && navigationController()->tabBarController()) {
        defaults.setBool(true, didRequest);
        services_.review.requestReview();
    }
}

void ViewController::unzipTapped() {
    services_.analytics.logEvent(event::kTappedUnzip);
    currentOperation_ = OperationType::kUnzip;
    showFilePicker(*this, context(), services_.documents, weakly(this));
}

void ViewController::zipTapped() {
    services_.analytics.logEvent(event::kTappedZip);
    const auto composer = makeController<ZipViewController>(services_);
    composer->setHidesBottomBarWhenPushed(true);
    if (const auto stack = navigationController()) {
        stack->pushViewController(composer, true);
    }
}

void ViewController::documentPickerDidPickDocuments(const QList<QUrl>& urls) {
    if (urls.isEmpty()) {
        return;
    }
    if (currentOperation_ == OperationType::kUnzip) {
        extract(urls.first());
    } else {
        compress(urls);
    }
}

void ViewController::compress(const QList<QUrl>& urls) {
    hud_ = MBProgressHUD::showAddedTo(context(), view(), true);
    hud_->setMode(MBProgressHUD::Mode::kAnnularDeterminate);
    hud_->setLabel(QStringLiteral("Compressing files"));
    const auto self = weakly(this);
    const auto awake = services_.sleep.keepAwake(tr("Making an archive"));
    // That of this run: another may have been shown since.
    const std::weak_ptr<MBProgressHUD> hud = hud_;
    zipManager_->zip(
        urls, QStringLiteral("Test"), [self, hud, awake](const std::optional<QUrl>& archive) {
            const auto screen = self.lock();
            if (!screen) {
                return;
            }
            if (!archive) {
                // The overlay stays under the alert.
                showFailureAlert(*screen, screen->context());
                return;
            }
            shareFiles(*screen,
                       screen->context(),
                       screen->services_.sharing,
                       {*archive},
                       [self](const auto&...) {
                           if (const auto sharer = self.lock()) {
                               askForReviewOnce(self,
                                                sharer->services_.settings,
                                                sharer->services_.review,
                                                sharer->services_.mainQueue);
                           }
                       });
            if (const auto shown = hud.lock()) {
                shown->hide(true);
            }
        });
}

void ViewController::extract(const QUrl& url) {
    hud_ = MBProgressHUD::showAddedTo(context(), view(), true);
    hud_->setLabel(QStringLiteral("Unzipping"));
    const auto self = weakly(this);
    const auto awake = services_.sleep.keepAwake(tr("Extracting an archive"));
    const std::weak_ptr<MBProgressHUD> hud = hud_;
    zipManager_->unzip(url, [self, hud, awake](const std::optional<QList<QUrl>>& urls) {
        if (const auto shown = hud.lock()) {
            shown->hide(true);
        }
        if (const auto screen = self.lock()) {
            screen->showResults(urls);
        }
    });
}

void ViewController::showResults(const std::optional<QList<QUrl>>& urls) {
    if (!urls) {
        showFailureAlert(*this, context());
        return;
    }
    const auto results = makeController<UnzipViewController>(services_, *urls);
    results->setHidesBottomBarWhenPushed(true);
    if (const auto stack = navigationController()) {
        stack->pushViewController(results, true);
    }
}

void ViewController::zipManagerDidAddFile(qint64 done, qint64 total) {
    services_.mainQueue.async([self = weakly(this), done, total] {
        const auto screen = self.lock();
        if (screen && screen->hud_) {
            screen->hud_->setProgress(static_cast<float>(done) / static_cast<float>(total));
        }
    });
}

void ViewController::appFileOpenerDidReceive(const QUrl& url) {
    AppFileOpener::setUrl(std::nullopt);
    services_.analytics.logEvent(event::kUsedShareExtension);
    const auto popup = makeController<ConfirmationPopupViewController>(context(), url);
    popup->setDelegate(weakly(this));
    present(popup, true);
}

void ViewController::didConfirmUnzip(const QUrl& url) {
    extract(url);
}

}  // namespace pellumar
