#include "screens/ViewController.h"

#include "events/EventNames.h"
#include "platform/FileUrl.h"
#include "platform/kit/UINavigationController.h"
#include "platform/kit/UITabBarController.h"
#include "platform/kit/UIWindow.h"
#include "screens/ConfirmationPopupViewController.h"
#include "screens/PasswordViewController.h"
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
      CanRunJobs(services.jobs),
      services_(services),
      launches_(launches) {}

void ViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    topConstraint_ = outlet<NSLayoutConstraint>(view(), QStringLiteral("topConstraint"));
    secondaryTopConstraint_ =
        outlet<NSLayoutConstraint>(view(), QStringLiteral("secondaryTopConstraint"));
    AppFileOpener::setDelegate(weakly(this));
    zipManager().setDelegate(weakly(this));
    setTitle(tr("Zip/Unzip"));
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
    showFilePicker();
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
        compress(tr("Compressing files"), [urls](auto& manager, const auto& completion) {
            manager.zip(urls, QStringLiteral("Test"), completion);
        });
    }
}

// While it works, not while it waits for a password. The overlay is that of this run: another may
// have been shown since.
class ViewController::Work {
  public:
    Work(ViewController& home, QString title) : home_(home), title_(std::move(title)) { begin(); }

    void begin() {
        hud_ = home_.showHud(title_);
        awake_ = home_.services_.sleep.keepAwake(tr("Extracting an archive"));
    }
    void end() {
        if (const auto hud = hud_.lock()) {
            hud->hide(true);
        }
        awake_.reset();
    }

  private:
    ViewController& home_;
    const QString title_;
    std::weak_ptr<MBProgressHUD> hud_;
    std::shared_ptr<void> awake_;
};

// A job of the engine, from its overlay to its end.
template <typename Start>
void ViewController::runJob(const QString& title,
                            const QUrl& archive,
                            bool canBeRescued,
                            Start start) {
    beginJob();
    const auto work = std::make_shared<Work>(*this, title);
    start(whileAlive([this, work, canBeRescued](const std::optional<QList<QUrl>>& urls,
                                                const JobReport& report) {
              work->end();
              if (urls) {
                  showResults(*urls, report);
              } else {
                  showFailure(report, canBeRescued);
              }
              endJob();
          }),
          whileAlive([this, work, archive](const std::shared_ptr<PasswordRequest>& request) {
              work->end();
              present(makeController<PasswordViewController>(
                          context(), lastPathComponent(archive), request, whileAlive([work] {
                              work->begin();
                          })),
                      true);
          }));
}

void ViewController::extract(const QUrl& url) {
    runJob(tr("Unzipping"), url, true, [&](auto completion, auto question) {
        zipManager().unzip(url, std::move(completion), std::move(question));
    });
}

void ViewController::showFailure(const JobReport& report, bool canBeRescued) {
    const FailureReason reason = FailureReason::of(report);
    UIAlertAction remedy;
    if (canBeRescued && reason.canBeSalvaged) {
        remedy.title = tr("Rescue what is whole");
        remedy.handler = whileAlive([this, report] { salvage(report); });
    }
    showFailureAlert(reason, remedy);
}

void ViewController::salvage(const JobReport& failed) {
    const QUrl archive = failed.archive();
    runJob(tr("Rescuing"), archive, false, [&](auto completion, auto question) {
        zipManager().salvage(
            archive, std::move(completion), failed.password(), std::move(question));
    });
}

void ViewController::showResults(const QList<QUrl>& urls, const JobReport& report) {
    const auto results = makeController<UnzipViewController>(services_, urls, report);
    results->setHidesBottomBarWhenPushed(true);
    if (const auto stack = navigationController()) {
        stack->pushViewController(results, true);
    }
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
