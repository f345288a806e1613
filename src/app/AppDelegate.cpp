#include "app/AppDelegate.h"

#include "app/MainInterface.h"
#include "app/OnboardingViewController.h"
#include "engine/AppFileOpener.h"
#include "platform/FileUrl.h"
#include "remote/ABTestManager.h"

namespace pellumar {

bool AppDelegate::applicationDidFinishLaunching() {
    const Remote remote = environment_.configureServices();
    remote.experiments.registerExperiments(ABTestManager::shared().experiments());
    // Nobody waits for it: the first screen shows what was active before.
    remote.settings.fetch([&console = environment_.console] {
        console.writeLine(QStringLiteral("Fetched remote settings"));
    });
    environment_.fileSystem.createFolders();
    environment_.fileSystem.clearWorkspace();
    showRoot(firstScreen());
    environment_.console.writeLine(memento_);
    return true;
}

std::shared_ptr<UIViewController> AppDelegate::firstScreen() {
    const UserSettings& settings = environment_.settings;
    if (settings.userDefaults().boolForKey(settings.didShowOnboardingKey())) {
        return makeMainInterface(environment_.ui, environment_.storyboard);
    }
    const auto onboarding =
        OnboardingViewController::instantiate<OnboardingViewController>(environment_.storyboard);
    if (onboarding) {
        onboarding->setDelegate(weak_from_this());
    }
    return onboarding;
}

void AppDelegate::showRoot(const std::shared_ptr<UIViewController>& root) {
    if (window_) {
        window_->setRootViewController(root);
        window_->makeKeyAndVisible();
    }
}

bool AppDelegate::applicationOpen(const QUrl& url) {
    if (!lastPathComponent(url).contains(QStringLiteral(".zip"))) {
        return false;
    }
    AppFileOpener::setUrl(url);
    return true;
}

void AppDelegate::onboardingDidFinish() {
    showRoot(makeMainInterface(environment_.ui, environment_.storyboard));
}

}  // namespace pellumar
