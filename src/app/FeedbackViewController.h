#pragma once

#include <QPointer>

#include "app/StarEvaluationView.h"
#include "events/PellumarAnalytics.h"
#include "platform/StoreReview.h"
#include "platform/kit/UIViewController.h"
#include "settings/UserSettings.h"

namespace pellumar {

// Asks how many stars the application is worth. More than three are remembered, and lead to the
// store's own prompt. Presented over any screen. Layout outlets: "sendButton",
// "starEvaluationView".
class FeedbackViewController : public pellumar::UIViewController,
                               public StarEvaluationViewDelegate {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")

  public:
    // All must outlive this.
    FeedbackViewController(const UIContext& context,
                           const UserSettings& settings,
                           const PellumarAnalytics& analytics,
                           StoreReview& review);

    Q_INVOKABLE void sendTapped();
    Q_INVOKABLE void closeTapped() { dismissSelf(true); }

    [[nodiscard]] int evaluation() const { return evaluation_; }
    void starEvaluationViewDidSelectRating(int rating) override;

  protected:
    void viewDidLoad() override;

  private:
    const UserSettings& settings_;
    const PellumarAnalytics& analytics_;
    StoreReview& review_;
    QPointer<QQuickItem> sendButton_;
    QPointer<StarEvaluationView> starEvaluationView_;
    int evaluation_ = 0;
};

}  // namespace pellumar
