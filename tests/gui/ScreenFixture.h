#pragma once

#include <gtest/gtest.h>

#include <QQmlEngine>
#include <QSettings>
#include <chrono>
#include <functional>
#include <memory>

#include "gui/SteppedAnimator.h"
#include "platform/RecordingAnalytics.h"
#include "platform/kit/UINavigationController.h"
#include "platform/kit/UITabBarController.h"
#include "platform/kit/UIWindow.h"
#include "platform/kit/ViewLoader.h"
#include "platform/photos/FileImageManager.h"
#include "screens/RelevantActionCount.h"
#include "screens/ScreenServices.h"
#include "screens/ViewController.h"
#include "support/ManualDispatchQueue.h"
#include "support/RecordingConsole.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {

class CountingReview : public StoreReview {
  public:
    void requestReview() override { ++requests; }
    int requests = 0;
};

class NoInhibitor : public SleepInhibitor {
  public:
    [[nodiscard]] std::shared_ptr<void> keepAwake(const QString& /*reason*/) override {
        return nullptr;
    }
};

// A screen in a window of its own, over a workspace, preferences and queues of the test's. Both
// queues run on the main thread, when told.
class ScreenFixture : public testing::Test {
    Q_DISABLE_COPY_MOVE(ScreenFixture)

  public:
    ~ScreenFixture() override;

  protected:
    ScreenFixture();

    // Lets go of screens that nobody holds any more, as the event loop does.
    static void releaseScreens();

    // Runs all that waits, until nothing does.
    void settle();

    // Runs all that waits until the condition holds; false if it does not in time.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& condition,
                                 std::chrono::milliseconds patience = std::chrono::seconds(20));

    // The home screen in tabs, in view, as after a launch.
    [[nodiscard]] std::shared_ptr<ViewController> showHome(QSize size = {360, 640});
    [[nodiscard]] std::shared_ptr<UINavigationController> stack() const { return stack_; }
    // An archive with one file, hello.txt, outside the workspace.
    [[nodiscard]] QUrl makeArchive(const std::string& name) const;
    [[nodiscard]] QStringList eventNames() const;
    [[nodiscard]] bool flag(const QString& key) const { return defaults.boolForKey(key); }
    // The presented screen of this class, or null.
    template <typename Controller>
    [[nodiscard]] std::shared_ptr<Controller> presented() const {
        return std::dynamic_pointer_cast<Controller>(window.topViewController());
    }

    TemporaryFolder folder;
    ManualDispatchQueue mainQueue;
    ManualDispatchQueue backgroundQueue;
    FolderQueue folders{backgroundQueue};
    RecordingConsole console;
    UserDefaults defaults;
    UserSettings settings;
    RecordingAnalytics events;
    PellumarAnalytics analytics;
    FileSystem fileSystem;
    QSettings memory;
    DocumentInbox inbox;
    ThumbnailStore thumbnails;
    PHPhotoLibrary photoLibrary;
    FileImageManager images;
    std::vector<ShareTarget> targets;
    SharedItems sharedItems;
    CountingReview review;
    NoInhibitor sleep;
    QQmlEngine engine;
    ViewLoader viewLoader;
    SteppedAnimator animator;
    RelevantActionCount launches;
    ScreenServices services;
    UIWindow window{services.ui};

  private:
    std::shared_ptr<UINavigationController> stack_;
};

}  // namespace pellumar::test
