#include "app/Composition.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>

#include "app/App.h"
#include "app/Measurement.h"
#include "app/OnboardingViewController.h"
#include "app/SettingsViewController.h"
#include "platform/FIRApp.h"
#include "platform/UserFolders.h"
#include "platform/look/Look.h"
#include "platform/sharing/DesktopTargets.h"
#include "screens/ViewController.h"

namespace pellumar {
namespace {

// What the platform remembers by itself, apart from the user's preferences.
QString memoryFile() {
    return QFile::decodeName(UserFolders::config("platform.ini").c_str());
}

RemoteConfigService::Options remoteOptions(const UserSettings& settings) {
    return {.folder = UserFolders::data("RemoteConfig"),
            .endpoint = RemoteConfigEndpoint::configured(settings.userDefaults())};
}

// Upright like a phone, and no larger than the screen. Where the system decides, as on a phone, it
// is overruled.
QSize firstSize() {
    constexpr QSize kSize(420, 760);
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? kSize : kSize.boundedTo(screen->availableSize());
}

// It is the engine's.
ThumbnailProvider& addThumbnailProvider(QQmlEngine& engine, const ThumbnailStore& store) {
    auto* const provider = new ThumbnailProvider(store);
    engine.addImageProvider(ThumbnailProvider::name(), provider);
    return *provider;
}

QStringList layoutModules() {
    return {QStringLiteral("Pellumar.App"),
            QStringLiteral("Pellumar.Screens"),
            QStringLiteral("Pellumar.Sharing"),
            QStringLiteral("Pellumar.Photos"),
            QStringLiteral("Pellumar.Documents"),
            QStringLiteral("Pellumar.Kit")};
}

}  // namespace

Composition::Composition()
    : settings_(UserSettings::shared()),
      remoteConfig_(std::make_shared<RemoteConfigService>(remoteOptions(settings_), console_)),
      engineOfEvents_(
          std::make_shared<AnalyticsEngine>(measurementEnvironment(settings_, remoteConfig_),
                                            AnalyticsEngine::CrashCatching::kOn)),
      analytics_(settings_, *engineOfEvents_),
      fileSystem_(DocumentDirectory(), console_, &backgroundQueue_),
      memory_(memoryFile(), QSettings::IniFormat),
      thumbnails_(ThumbnailStore::standardFolder(), Thumbnailers(Thumbnailers::standardFolders())),
      photoLibrary_(PHPhotoLibrary::standardFolders()),
      images_(thumbnails_),
      inbox_(DocumentInbox::standardFolder(), mainQueue_, folderQueue_),
      sharedItems_(SharedItems::standardFolder()),
      review_(memory_,
              opener_,
              QDateTime::currentDateTimeUtc,
              SKStoreReviewController::desktopHasStore),
      targets_(desktopTargets()),
      thumbnailProvider_(addThumbnailProvider(engine_, thumbnails_)),
      viewLoader_(engine_, layoutModules()),
      animator_([this] { return appearance_.isStill(); }),
      launches_(settings_.userDefaults()),
      screens_{.ui = {viewLoader_, animator_, {}},
               .settings = settings_,
               .analytics = analytics_,
               .fileSystem = fileSystem_,
               .jobs = {.fileSystem = fileSystem_,
                        .analytics = analytics_,
                        .console = console_,
                        .mainQueue = mainQueue_,
                        .backgroundQueue = backgroundQueue_,
                        .originals = inbox_.originals()},
               .documents = {inbox_, mainQueue_, folderQueue_, memory_},
               .photos = {photoLibrary_, images_, mainQueue_, folderQueue_},
               .sharing = {screens_.documents, targets_, sharedItems_},
               .review = review_,
               .sleep = sleep_,
               .mainQueue = mainQueue_},
      delegate_(std::make_shared<AppDelegate>(
          AppDelegate::Environment{screens_.ui,
                                   storyboard_,
                                   settings_,
                                   fileSystem_,
                                   console_,
                                   [this] { configureServices(); }})) {
    installIcons(engine_);
    followAppearance();
    followActivity();
    fillStoryboard();
    inbox_.clear();
    backgroundQueue_.async([this] { sharedItems_.forgetEarlier(); });
    window_.setTitle(QGuiApplication::applicationDisplayName());
    window_.resize(firstSize());
    delegate_->setWindow(&window_);
}

Composition::~Composition() {
    static_cast<void>(stop());
}

bool Composition::stop() {
    constexpr std::chrono::milliseconds kWait(100);
    window_.setRootViewController(nullptr);
    remoteConfig_->stop();
    // Screens go with the event loop, which has ended; what they work with goes now.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    engineOfEvents_->stop();
    memory_.sync();
    return waitForWork(kWait);
}

bool Composition::waitForWork(std::chrono::milliseconds timeout) {
    const QDeadlineTimer deadline(timeout);
    return backgroundQueue_.waitForDone(timeout) &&
           folderQueue_.waitForDone(std::chrono::milliseconds(deadline.remainingTime())) &&
           thumbnailProvider_.waitForDone(std::chrono::milliseconds(deadline.remainingTime()));
}

void Composition::configureServices() {
    FIRApp::configure({engineOfEvents_, remoteConfig_});
}

void Composition::followAppearance() {
    const auto follow = [this] {
        applyLook(engine_, {appearance_.isDark(), appearance_.isStill(), appearance_.textScale()});
    };
    QObject::connect(&appearance_, &Appearance::changed, &engine_, follow);
    follow();
}

void Composition::followActivity() {
    const auto follow = [this](Qt::ApplicationState state) {
        engineOfEvents_->setActive(state == Qt::ApplicationActive);
    };
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &engine_, follow);
    if (QGuiApplication::applicationState() == Qt::ApplicationActive) {
        follow(Qt::ApplicationActive);
    }
}

void Composition::fillStoryboard() {
    storyboard_.addScene(QStringLiteral("ViewController"),
                         [this] { return makeController<ViewController>(screens_, launches_); });
    storyboard_.addScene(QStringLiteral("SettingsViewController"), [this] {
        return makeController<SettingsViewController>(screens_.ui, settings_, analytics_, opener_);
    });
    storyboard_.addScene(QStringLiteral("OnboardingViewController"), [this] {
        return makeController<OnboardingViewController>(screens_.ui, settings_, analytics_);
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
