#include "app/SettingsViewController.h"

#include <utility>

#include "events/EventNames.h"
#include "platform/kit/UINavigationController.h"

namespace pellumar {
SettingsViewController::SettingsViewController(const UIContext& context,
                                               const UserSettings& settings,
                                               const PellumarAnalytics& analytics,
                                               const OutboundLinks& links,
                                               UrlOpener& opener,
                                               UsageDataSource usageData)
    : UIViewController(context),
      settings_(settings),
      analytics_(analytics),
      links_(links),
      opener_(opener),
      usageData_(std::move(usageData)) {}

void SettingsViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    usageSwitch_ = outlet<QQuickItem>(view(), QStringLiteral("usageSwitch"));
    setTitle(tr("Settings"));
}

void SettingsViewController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    if (const auto stack = navigationController()) {
        stack->setNavigationBarHidden(false, true);
    }
    usageSwitch_->setProperty("animates", false);
    usageSwitch_->setProperty("checked",
                              settings_.userDefaults().boolForKey(settings_.sendUsageDataKey()));
    usageSwitch_->setProperty("animates", true);
}

void SettingsViewController::appUsageSwitchChanged() {
    settings_.userDefaults().setBool(usageSwitch_->property("checked").toBool(),
                                     settings_.sendUsageDataKey());
}

void SettingsViewController::seeMoreTapped() {
    const QUrl page = links_.webPage();
    if (page.isValid()) {
        opener_.open(page);
    }
}

void SettingsViewController::usageDataTapped() {
    present(makeController<UsageDataViewController>(context(), usageData_), true);
}

void SettingsViewController::didSelectRow(int row) {
    if (row != kDeveloperRow) {
        return;
    }
    analytics_.logEvent(event::kDeveloperTapped);
    opener_.open(links_.developerPage());
}

}  // namespace pellumar
