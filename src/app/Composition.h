#pragma once

#include <QUrl>
#include <chrono>
#include <memory>
#include <optional>

#include "app/AppDelegate.h"
#include "app/HandedOverArchives.h"
#include "app/OutboundLinks.h"
#include "app/PlatformParts.h"
#include "app/Services.h"
#include "app/WindowParts.h"
#include "app/WindowReviewPrompt.h"
#include "platform/desktop/SKStoreReviewController.h"
#include "platform/desktop/SoftwareCentre.h"
#include "screens/RelevantActionCount.h"
#include "screens/ScreenServices.h"

namespace pellumar {

// The application, put together. For the main thread.
class Composition {
  public:
    // Nothing of it runs yet.
    Composition();
    // Waits for what is at work in the background, as long as it takes.
    ~Composition();
    Composition(const Composition&) = delete;
    Composition& operator=(const Composition&) = delete;

    // Starts the application. What it was started for is handed over first: the home screen finds
    // it when it comes into view.
    void launch(const QList<QUrl>& archives);

    // Hands over what others want opened.
    void open(const QList<QUrl>& archives);

    // For when the event loop has ended: removes the screens and stops the services; true if no
    // work in the background is left after a short wait.
    [[nodiscard]] bool stop();

    // Waits until nothing is at work in the background; false if it does not come to that in time.
    [[nodiscard]] bool waitForWork(std::chrono::milliseconds timeout);

    [[nodiscard]] UIWindow& window() { return window_.window(); }
    [[nodiscard]] QQmlEngine& engine() { return window_.engine(); }
    [[nodiscard]] const UIStoryboard& storyboard() const { return storyboard_; }
    // What the screens work with. After the launch.
    [[nodiscard]] const ScreenServices& screens() const { return *screens_; }

  private:
    [[nodiscard]] ScreenServices makeScreenServices();
    void fillStoryboard();
    [[nodiscard]] AppDelegate::Remote configureServices();
    void followActivity();

    const UserSettings& settings_;
    PlatformParts platform_;
    const DocumentServices documents_;
    const FileSystem fileSystem_;
    WindowParts window_;
    WindowReviewPrompt reviewPrompt_;
    SKStoreReviewController review_;
    const OutboundLinks links_{OutboundLinks::ofThisBuild(), SoftwareCentre::isInstalled};
    RelevantActionCount launches_;
    UIStoryboard storyboard_;
    // From the launch on.
    std::unique_ptr<Services> services_;
    std::optional<ScreenServices> screens_;
    const std::shared_ptr<AppDelegate> delegate_;
    HandedOverArchives handedOver_;
};

}  // namespace pellumar
