#pragma once

#include <QPointer>

#include "app/OutboundLinks.h"
#include "app/UsageDataViewController.h"
#include "events/PellumarAnalytics.h"
#include "platform/UrlOpener.h"
#include "platform/kit/StoryboardInstantiable.h"
#include "platform/kit/UIViewController.h"
#include "settings/UserSettings.h"

namespace pellumar {

// The settings: the user's word on usage data, what is kept of that, and two ways out. Layout
// outlet: "usageSwitch".
class SettingsViewController : public UIViewController, public StoryboardInstantiable {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(int developerRow READ developerRow CONSTANT)

  public:
    // The rows of the layout, by their position.
    enum Row { kUsageDataRow = 0, kDeveloperRow = 1 };

    // All must outlive this.
    SettingsViewController(const UIContext& context,
                           const UserSettings& settings,
                           const PellumarAnalytics& analytics,
                           const OutboundLinks& links,
                           UrlOpener& opener,
                           UsageDataSource usageData);

    // Keeps the setting, which is read at every event.
    Q_INVOKABLE void appUsageSwitchChanged();
    Q_INVOKABLE void seeMoreTapped();
    Q_INVOKABLE void usageDataTapped();
    Q_INVOKABLE void didSelectRow(int row);

    [[nodiscard]] int developerRow() const { return kDeveloperRow; }

  protected:
    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;

  private:
    const UserSettings& settings_;
    const PellumarAnalytics& analytics_;
    const OutboundLinks& links_;
    UrlOpener& opener_;
    const UsageDataSource usageData_;
    QPointer<QQuickItem> usageSwitch_;
};

}  // namespace pellumar
