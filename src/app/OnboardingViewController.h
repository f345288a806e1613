#pragma once

#include <QPointer>
#include <memory>

#include "app/OnboardingDelegate.h"
#include "events/PellumarAnalytics.h"
#include "platform/kit/NSLayoutConstraint.h"
#include "platform/kit/StoryboardInstantiable.h"
#include "platform/kit/UIViewController.h"
#include "settings/UserSettings.h"

namespace pellumar {

// The one screen of a first run. It counts as seen as soon as it has appeared. Layout outlets:
// "topConstraint", "gradientView", "logoContainerView", "cardView".
class OnboardingViewController : public UIViewController, public StoryboardInstantiable {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")

  public:
    // Both must outlive this.
    OnboardingViewController(const UIContext& context,
                             const UserSettings& settings,
                             const PellumarAnalytics& analytics);

    // Held weakly.
    void setDelegate(const std::weak_ptr<OnboardingDelegate>& delegate) { delegate_ = delegate; }

    Q_INVOKABLE void okTapped();

  protected:
    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;

  private:
    const UserSettings& settings_;
    const PellumarAnalytics& analytics_;
    QPointer<NSLayoutConstraint> topConstraint_;
    QPointer<QQuickItem> gradientView_;
    QPointer<QQuickItem> logoContainerView_;
    QPointer<QQuickItem> cardView_;
    std::weak_ptr<OnboardingDelegate> delegate_;
};

}  // namespace pellumar
