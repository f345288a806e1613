#include "app/OnboardingViewController.h"

#include "app/GradientLayer.h"
#include "events/EventNames.h"
#include "platform/kit/UIWindow.h"

namespace pellumar {
namespace {

constexpr qreal kSmallHeight = 568;
constexpr qreal kSmallTop = 16;
constexpr std::chrono::milliseconds kFadeTime{250};
const QColor kTop(255, 164, 56);
const QColor kBottom(255, 101, 43);

}  // namespace

OnboardingViewController::OnboardingViewController(const UIContext& context,
                                                   const UserSettings& settings,
                                                   const PellumarAnalytics& analytics)
    : UIViewController(context), settings_(settings), analytics_(analytics) {}

void OnboardingViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    topConstraint_ = outlet<NSLayoutConstraint>(view(), QStringLiteral("topConstraint"));
    gradientView_ = outlet<QQuickItem>(view(), QStringLiteral("gradientView"));
    logoContainerView_ = outlet<QQuickItem>(view(), QStringLiteral("logoContainerView"));
    cardView_ = outlet<QQuickItem>(view(), QStringLiteral("cardView"));
    logoContainerView_->setOpacity(0);
    analytics_.logEvent(event::kStartedTutorial);
}

void OnboardingViewController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    view().ensurePolished();
    new GradientLayer(*gradientView_, kTop, kBottom);
    const UIWindow* const where = window();
    if (where != nullptr && where->bounds().height() <= kSmallHeight) {
        topConstraint_->setConstant(kSmallTop);
    }
}

void OnboardingViewController::viewDidAppear(bool animated) {
    UIViewController::viewDidAppear(animated);
    settings_.userDefaults().setBool(true, settings_.didShowOnboardingKey());
    context().animator.animate(
        kFadeTime,
        QEasingCurve::InCubic,
        [self = weakly(this)](qreal progress) {
            if (const auto screen = self.lock()) {
                screen->logoContainerView_->setOpacity(progress);
            }
        },
        [] {});
}

void OnboardingViewController::okTapped() {
    analytics_.logEvent(event::kFinishedTutorial);
    if (const auto delegate = delegate_.lock()) {
        delegate->onboardingDidFinish();
    }
}

}  // namespace pellumar
