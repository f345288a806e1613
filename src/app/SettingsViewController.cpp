#include "app/SettingsViewController.h"

#include "events/EventNames.h"
#include "platform/kit/UINavigationController.h"

namespace pellumar {
namespace {

const QString kWebPage = QStringLiteral(WEB_PAGE);
const QString kDeveloperPage = QStringLiteral(DEVELOPER_PAGE);

}  // namespace

SettingsViewController::SettingsViewController(const UIContext& context,
                                               const UserSettings& settings,
                                               const PellumarAnalytics& analytics,
                                               UrlOpener& opener)
    : UIViewController(context), settings_(settings), analytics_(analytics), opener_(opener) {}

void SettingsViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    usageSwitch_ = outlet<QQuickItem>(view(), QStringLiteral("usageSwitch"));
    setTitle(QStringLiteral("Settings"));
}

void SettingsViewController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    if (const auto stack = navigationController()) {
        stack->setNavigationBarHidden(false, true);
    }
    usageSwitch_->setProperty("checked",
                              settings_.userDefaults().boolForKey(settings_.sendUsageDataKey()));
}

void SettingsViewController::appUsageSwitchChanged() {
    settings_.userDefaults().setBool(usageSwitch_->property("checked").toBool(),
                                     settings_.sendUsageDataKey());
}

void SettingsViewController::seeMoreTapped() {
    const QUrl page(kWebPage, QUrl::StrictMode);
    if (page.isValid()) {
        opener_.open(page);
    }
}

void SettingsViewController::didSelectRow(int row) {
    if (row != kDeveloperRow) {
        return;
    }
    analytics_.logEvent(event::kDeveloperTapped);
    const QUrl page(kDeveloperPage, QUrl::StrictMode);
    if (!page.isValid()) {
        qFatal("The developer's address is no URL.");
    }
    opener_.open(page);
}

}  // namespace pellumar
