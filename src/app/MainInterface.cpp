#include "app/MainInterface.h"

#include "app/MainNavigationController.h"
#include "app/MainTabBarController.h"
#include "app/SettingsViewController.h"

namespace pellumar {

std::shared_ptr<UIViewController> makeMainInterface(const UIContext& context,
                                                    const UIStoryboard& storyboard) {
    const auto home = storyboard.instantiateInitialViewController();
    if (!home) {
        return nullptr;
    }
    const auto settings = SettingsViewController::instantiate<SettingsViewController>(storyboard);
    if (!settings) {
        return nullptr;
    }
    const auto tabs = makeController<MainTabBarController>(context);
    tabs->setTabs({{{QStringLiteral("Zip/Unzip"), QStringLiteral("zipIcon")},
                    makeController<MainNavigationController>(context, home)},
                   {{QStringLiteral("Settings"), QStringLiteral("settings")},
                    makeController<MainNavigationController>(context, settings)}});
    if (context.device.systemVersion >= kBarAppearanceVersion) {
        auto appearance = std::make_shared<UITabBarAppearance>();
        appearance->hasOpaqueBackground = true;
        tabs->setStandardAppearance(appearance);
        tabs->setScrollEdgeAppearance(appearance);
    }
    return tabs;
}

}  // namespace pellumar
