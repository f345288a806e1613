#include "app/MainInterface.h"

#include <QCoreApplication>

#include "app/MainNavigationController.h"
#include "app/MainTabBarController.h"
#include "app/SettingsViewController.h"

namespace pellumar {
namespace {

class TabTitles {
    Q_DECLARE_TR_FUNCTIONS(TabTitles)
};

}  // namespace

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
    tabs->setTabs({{{TabTitles::tr("Zip/Unzip"), QStringLiteral("zipIcon")},
                    makeController<MainNavigationController>(context, home)},
                   {{TabTitles::tr("Settings"), QStringLiteral("settings")},
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
