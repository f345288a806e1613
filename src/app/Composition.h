#pragma once

#include <QQmlEngine>
#include <QSettings>
#include <cstdio>
#include <memory>
#include <vector>

#include "analytics/AnalyticsEngine.h"
#include "app/AppDelegate.h"
#include "platform/GlobalDispatchQueue.h"
#include "platform/MainDispatchQueue.h"
#include "platform/desktop/Appearance.h"
#include "platform/desktop/DesktopUrlOpener.h"
#include "platform/desktop/PortalSleepInhibitor.h"
#include "platform/desktop/SKStoreReviewController.h"
#include "platform/documents/ThumbnailProvider.h"
#include "platform/kit/FrameAnimator.h"
#include "platform/kit/QmlViewLoader.h"
#include "platform/photos/FileImageManager.h"
#include "platform/remoteconfig/RemoteConfigService.h"
#include "screens/RelevantActionCount.h"
#include "screens/ScreenServices.h"

namespace pellumar {

// Everything that lives as long as the program, made in the order in which it needs each other.
class Composition {
  public:
    Composition();
    ~Composition();
    Composition(const Composition&) = delete;
    Composition& operator=(const Composition&) = delete;

    // For when the event loop has ended: removes the screens and stops the services; true if no
    // work in the background is left after a short wait. Otherwise that still uses this, which can
    // only go after it: the destructor waits as long as it takes.
    [[nodiscard]] bool stop();

    // Waits until nothing is at work in the background; false if it does not come to that in time.
    [[nodiscard]] bool waitForWork(std::chrono::milliseconds timeout);

    [[nodiscard]] AppDelegate& delegate() { return *delegate_; }
    [[nodiscard]] UIWindow& window() { return window_; }
    [[nodiscard]] QQmlEngine& engine() { return engine_; }
    [[nodiscard]] const ScreenServices& screens() const { return screens_; }
    [[nodiscard]] const UIStoryboard& storyboard() const { return storyboard_; }

  private:
    static constexpr int kWorkNiceness = 5;
    static constexpr int kFoldersAtOnce = 32;

    void fillStoryboard();
    void followAppearance();
    void followActivity();
    void configureServices();

    StreamConsole console_{stdout};
    MainDispatchQueue mainQueue_;
    const UserSettings& settings_;
    std::shared_ptr<RemoteConfigService> remoteConfig_;
    std::shared_ptr<AnalyticsEngine> engineOfEvents_;
    PellumarAnalytics analytics_;
    FileSystem fileSystem_;
    QSettings memory_;
    const ThumbnailStore thumbnails_;
    const PHPhotoLibrary photoLibrary_;
    FileImageManager images_;
    // Behind the window, whose frames must not wait for archive work. It goes, with its work,
    // before what stands above, which that works with.
    GlobalDispatchQueue backgroundQueue_{kWorkNiceness};
    // For the user's folders, which may be on a network and hang: apart, so that no job waits.
    GlobalDispatchQueue folderQueue_{kWorkNiceness, kFoldersAtOnce};
    DocumentInbox inbox_;
    const SharedItems sharedItems_;
    DesktopUrlOpener opener_;
    SKStoreReviewController review_;
    PortalSleepInhibitor sleep_;
    std::vector<std::shared_ptr<ShareTarget>> targets_;
    Appearance appearance_;
    QQmlEngine engine_;
    ThumbnailProvider& thumbnailProvider_;
    QmlViewLoader viewLoader_;
    FrameAnimator animator_;
    RelevantActionCount launches_;
    ScreenServices screens_;
    UIStoryboard storyboard_;
    UIWindow window_;
    std::shared_ptr<AppDelegate> delegate_;
};

}  // namespace pellumar
