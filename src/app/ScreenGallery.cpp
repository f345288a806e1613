#include "app/ScreenGallery.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include "app/FeedbackViewController.h"
#include "app/MainInterface.h"
#include "platform/kit/MBProgressHUD.h"
#include "platform/kit/UIAlertController.h"
#include "platform/kit/UINavigationController.h"
#include "platform/kit/UITabBarController.h"
#include "platform/look/Look.h"
#include "screens/ConfirmationPopupViewController.h"
#include "screens/UnzipViewController.h"
#include "screens/ZipViewController.h"

namespace pellumar {
namespace {

constexpr int kSettleMs = 700;
constexpr QSize kSizes[] = {{360, 640}, {390, 844}};

// What the layouts complain of.
QStringList complaints;

void collect(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const bool isOfLayout =
        message.contains(QStringLiteral("qrc:")) || qstrncmp(context.category, "qml", 3) == 0;
    if (type != QtDebugMsg && type != QtInfoMsg && isOfLayout) {
        complaints.append(message);
    }
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
}

// Files of the size that their names promise, gone with the program.
QList<QUrl> sampleFiles() {
    static const QTemporaryDir folder;
    const std::pair<const char*, qint64> samples[] = {
        {"Holiday in the mountains 2026.jpg", 2'400'000},
        {"Invoice.pdf", 184'000},
        {"Letter.odt", 21'300},
        {"Budget.ods", 48'100},
        {"Song.mp3", 5'200'000},
        {"main.cpp", 3'120},
        {"Photos.zip", 18'700'000},
        {"Readme.txt", 912}};
    QList<QUrl> urls;
    for (const auto& [name, size] : samples) {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        if (file.open(QIODevice::WriteOnly) && file.resize(size)) {
            urls.append(QUrl::fromLocalFile(file.fileName()));
        }
    }
    return urls;
}

}  // namespace

std::shared_ptr<UINavigationController> ScreenGallery::showHome() {
    const auto root = makeMainInterface(composition_.screens().ui, composition_.storyboard());
    composition_.window().setRootViewController(root);
    composition_.window().makeKeyAndVisible();
    const auto tabs = std::dynamic_pointer_cast<UITabBarController>(root);
    return std::dynamic_pointer_cast<UINavigationController>(tabs->selectedViewController());
}

void ScreenGallery::push(const std::shared_ptr<UIViewController>& screen) {
    screen->setHidesBottomBarWhenPushed(true);
    showHome()->pushViewController(screen, false);
}

void ScreenGallery::present(const std::shared_ptr<UIViewController>& screen) {
    showHome()->topViewController()->present(screen, false);
}

std::vector<ScreenGallery::Scene> ScreenGallery::scenes() {
    std::vector<Scene> all = shellScenes();
    for (const auto& some : {archiveScenes(), composerScenes()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

std::vector<ScreenGallery::Scene> ScreenGallery::shellScenes() {
    const ScreenServices& services = composition_.screens();
    return {
        {"onboarding",
         [this] {
             composition_.window().setRootViewController(
                 composition_.storyboard().instantiateViewController("OnboardingViewController"));
             composition_.window().makeKeyAndVisible();
         }},
        {"home", [this] { static_cast<void>(showHome()); }},
        {"settings",
         [this] {
             static_cast<void>(showHome());
             const auto root = composition_.window().rootViewController();
             std::dynamic_pointer_cast<UITabBarController>(root)->select(1);
         }},
        {"feedback",
         [this, &services] {
             const auto feedback = makeController<FeedbackViewController>(
                 services.ui, services.settings, services.analytics, services.review);
             present(feedback);
             QObject fourthStar;
             fourthStar.setProperty("tag", 3);
             outlet<StarEvaluationView>(feedback->view(), QStringLiteral("starEvaluationView"))
                 ->starSelected(&fourthStar);
         }},
    };
}

std::vector<ScreenGallery::Scene> ScreenGallery::archiveScenes() {
    const ScreenServices& services = composition_.screens();
    return {
        {"results",
         [this, &services] { push(makeController<UnzipViewController>(services, sampleFiles())); }},
        {"results-empty",
         [this, &services] { push(makeController<UnzipViewController>(services, QList<QUrl>())); }},
        {"popup",
         [this, &services] {
             present(makeController<ConfirmationPopupViewController>(
                 services.ui, QUrl::fromLocalFile("/Holiday photos from Zürich.zip")));
         }},
        {"picker",
         [this, &services] {
             present(makeController<UIDocumentPickerViewController>(
                 services.ui, services.documents, QStringList{"public.item"}, true));
         }},
        {"share",
         [this, &services] {
             present(makeController<UIActivityViewController>(
                 services.ui, services.sharing, sampleFiles().mid(6, 1)));
         }},
    };
}

std::vector<ScreenGallery::Scene> ScreenGallery::composerScenes() {
    const ScreenServices& services = composition_.screens();
    return {
        {"composer", [this, &services] { push(makeController<ZipViewController>(services)); }},
        {"photos",
         [this, &services] {
             const auto picker = makeController<PHPickerViewController>(
                 services.ui,
                 samplePhotos_.services(),
                 PHPickerConfiguration{
                     .isBoundToLibrary = true,
                     .selectionLimit = 100,
                     .filter = {PHAssetMediaType::kImage, PHAssetMediaType::kVideo}});
             present(picker);
             settle();
             for (const int row : {1, 3, 4}) {
                 picker->assetTapped(row);
             }
         }},
        {"title-alert",
         [this, &services] {
             const auto composer = makeController<ZipViewController>(services);
             push(composer);
             composer->askTitleForFiles(sampleFiles());
         }},
        {"overlay",
         [this, &services] {
             const auto composer = makeController<ZipViewController>(services);
             push(composer);
             const auto hud = MBProgressHUD::showAddedTo(services.ui, composer->view(), false);
             hud->setMode(MBProgressHUD::Mode::kAnnularDeterminate);
             hud->setLabel(QStringLiteral("Compressing files"));
             hud->setProgress(0.5F);
             // It lives as long as what it covers.
             QObject::connect(composer.get(), &QObject::destroyed, [hud] {});
         }},
    };
}

void ScreenGallery::settle() {
    QElapsedTimer elapsed;
    elapsed.start();
    while (elapsed.elapsed() < kSettleMs) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
}

bool ScreenGallery::selfTest() {
    const QtMessageHandler before = qInstallMessageHandler(collect);
    for (const Scene& scene : scenes()) {
        scene.show();
        settle();
    }
    qInstallMessageHandler(before);
    return complaints.isEmpty();
}

bool ScreenGallery::saveScreenshots(const QString& folder) {
    bool isSaved = QDir().mkpath(folder);
    for (const QSize& size : kSizes) {
        composition_.window().resize(size);
        for (const bool isDark : {false, true}) {
            applyLook(composition_.engine(), {.isDark = isDark});
            for (const Scene& scene : scenes()) {
                scene.show();
                settle();
                const QString file = QStringLiteral("%1/%2-%3x%4-%5.png")
                                         .arg(folder, scene.name)
                                         .arg(size.width())
                                         .arg(size.height())
                                         .arg(isDark ? "dark" : "light");
                isSaved = composition_.window().grabWindow().save(file) && isSaved;
            }
        }
    }
    return isSaved;
}

}  // namespace pellumar
