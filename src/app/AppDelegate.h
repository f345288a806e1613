#pragma once

#include <QString>
#include <QUrl>
#include <functional>
#include <memory>

#include "app/OnboardingDelegate.h"
#include "engine/FileSystem.h"
#include "platform/Console.h"
#include "platform/kit/UIStoryboard.h"
#include "platform/kit/UIWindow.h"
#include "remote/ABTests.h"
#include "settings/UserSettings.h"

namespace pellumar {

// Starts the application, and takes archives that others hand over. For the main thread.
class AppDelegate : public OnboardingDelegate, public std::enable_shared_from_this<AppDelegate> {
  public:
    struct Remote {
        ABTests& experiments;
        RemoteSettings& settings;
    };
    // All must outlive this.
    struct Environment {
        UIContext ui;
        const UIStoryboard& storyboard;
        const UserSettings& settings;
        const FileSystem& fileSystem;
        Console& console;
        // Makes the services of the process known (FIRApp::configure), and says what stands on
        // them.
        std::function<Remote()> configureServices;
    };

    explicit AppDelegate(const Environment& environment) : environment_(environment) {}

    // The one window; null until it is made, and without it there is nothing to see.
    void setWindow(UIWindow* window) { window_ = window; }

    // Starts everything, in an order that matters, and shows the first screen. Always true.
    bool applicationDidFinishLaunching();

    // Takes a file whose name contains ".zip", anywhere and in small letters; false for any other.
    // The file is neither opened nor copied here.
    [[nodiscard]] bool applicationOpen(const QUrl& url);

    void onboardingDidFinish() override;

  private:
    [[nodiscard]] std::shared_ptr<UIViewController> firstScreen();
    void showRoot(const std::shared_ptr<UIViewController>& root);

    const Environment environment_;
    QPointer<UIWindow> window_;
    const QString memento_ = QStringLiteral(
        "PLEASE UNIVERSE! MAKE THIS APP VISIBLE AND USED BY MOST PEOPLE OF THIS WORLD! "
        "MAKE IT A SUCCESS!");
};

}  // namespace pellumar
