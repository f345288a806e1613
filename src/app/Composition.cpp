#include "app/Composition.h"

#include <QDeadlineTimer>
#include <QGuiApplication>

#include "app/Measurement.h"
#include "app/OnboardingViewController.h"
#include "app/SettingsViewController.h"
#include "app/Shortcuts.h"
#include "platform/sharing/KeptEdits.h"
#include "platform/sharing/StagingFolder.h"
#include "screens/ViewController.h"

namespace pellumar {

Composition::Composition()
    : settings_(UserSettings::shared()),
      documents_{platform_.inbox,
                 platform_.mainQueue,
                 platform_.folderQueue,
                 platform_.folders,
                 platform_.memory},
      fileSystem_(DocumentDirectory(), platform_.console, &platform_.backgroundQueue),
      window_(platform_.thumbnails),
      reviewPrompt_(window()),
      review_(platform_.memory,
              reviewPrompt_,
              platform_.opener,
              QDateTime::currentDateTimeUtc,
              SoftwareCentre::isInstalled),
      launches_(settings_.userDefaults()),
      delegate_(std::make_shared<AppDelegate>(
          AppDelegate::Environment{window().context(),
                                   storyboard_,
                                   settings_,
                                   fileSystem_,
                                   platform_.console,
                                   [this] { return configureServices(); }})),
      handedOver_(*delegate_, window()) {
    fillStoryboard();
    addShortcuts(window());
    delegate_->setWindow(&window());
}

Composition::~Composition() {
    constexpr std::chrono::hours kAsLongAsItTakes(24);
    static_cast<void>(stop());
    static_cast<void>(waitForWork(kAsLongAsItTakes));
}

void Composition::launch(const QList<QUrl>& archives) {
    platform_.inbox.clear();
    platform_.folderQueue.async([] { StagingFolder::removeLeft(StagingFolder::standardNotes()); });
    KeptEdits::recover(platform_.sharedItems, documents_, window());
    open(archives);
    delegate_->applicationDidFinishLaunching();
}

void Composition::open(const QList<QUrl>& archives) {
    handedOver_.add(archives);
}

bool Composition::stop() {
    constexpr std::chrono::milliseconds kWait(100);
    window().setRootViewController(nullptr);
    // Screens go with the event loop, which has ended; what they work with goes now.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (services_) {
        services_->stop();
    }
    platform_.memory.sync();
    return waitForWork(kWait);
}

bool Composition::waitForWork(std::chrono::milliseconds timeout) {
    const QDeadlineTimer deadline(timeout);
    return platform_.backgroundQueue.waitForDone(timeout) &&
           platform_.folderQueue.waitForDone(std::chrono::milliseconds(deadline.remainingTime())) &&
           window_.waitForThumbnails(std::chrono::milliseconds(deadline.remainingTime()));
}

AppDelegate::Remote Composition::configureServices() {
    FIRApp::configure([this] {
        services_ = Services::start(settings_, platform_.console);
        return services_->shared();
    });
    followActivity();
    screens_.emplace(makeScreenServices());
    return {ABTests::shared(), RemoteSettings::shared()};
}

void Composition::followActivity() {
    const auto follow = [this](Qt::ApplicationState state) {
        services_->setActive(state == Qt::ApplicationActive);
    };
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &engine(), follow);
    if (QGuiApplication::applicationState() == Qt::ApplicationActive) {
        follow(Qt::ApplicationActive);
    }
}

ScreenServices Composition::makeScreenServices() {
    PlatformParts& parts = platform_;
    const PellumarAnalytics& analytics = services_->analytics();
    return {.ui = window().context(),
            .settings = settings_,
            .analytics = analytics,
            .fileSystem = fileSystem_,
            .jobs = {.fileSystem = fileSystem_,
                     .analytics = analytics,
                     .console = parts.console,
                     .mainQueue = parts.mainQueue,
                     .backgroundQueue = parts.backgroundQueue,
                     .originals = parts.inbox.originals()},
            .documents = documents_,
            .photos = {parts.photoLibrary,
                       parts.images,
                       parts.mainQueue,
                       parts.folderQueue,
                       parts.folders},
            .sharing = {documents_, parts.shareTargets, parts.sharedItems},
            .review = review_,
            .sleep = parts.sleep,
            .mainQueue = parts.mainQueue};
}

void Composition::fillStoryboard() {
    storyboard_.addScene(QStringLiteral("ViewController"),
                         [this] { return makeController<ViewController>(screens(), launches_); });
    storyboard_.addScene(QStringLiteral("SettingsViewController"), [this] {
        return makeController<SettingsViewController>(
            screens().ui,
            settings_,
            screens().analytics,
            links_,
            platform_.opener,
            UsageDataSource{usageData, platform_.backgroundQueue, platform_.mainQueue});
    });
    storyboard_.addScene(QStringLiteral("OnboardingViewController"), [this] {
        return makeController<OnboardingViewController>(
            screens().ui, settings_, screens().analytics);
    });
    for (const char* const madeInCode : {"ZipViewController",
                                         "UnzipViewController",
                                         "ConfirmationPopupViewController",
                                         "FeedbackViewController"}) {
        storyboard_.refuseScene(QString::fromLatin1(madeInCode));
    }
    storyboard_.setInitialScene(QStringLiteral("ViewController"));
}

}  // namespace pellumar
