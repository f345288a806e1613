#include "app/FeedbackViewController.h"

namespace pellumar {
namespace {

// More stars than these, and the user is satisfied.
constexpr int kThreshold = 3;

}  // namespace

FeedbackViewController::FeedbackViewController(const UIContext& context,
                                               const UserSettings& settings,
                                               const PellumarAnalytics& analytics,
                                               StoreReview& review)
    : UIViewController(context), settings_(settings), analytics_(analytics), review_(review) {}

void FeedbackViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    sendButton_ = outlet<QQuickItem>(view(), QStringLiteral("sendButton"));
    starEvaluationView_ = outlet<StarEvaluationView>(view(), QStringLiteral("starEvaluationView"));
    starEvaluationView_->setDelegate(weakly(this));
    sendButton_->setEnabled(false);
}

void FeedbackViewController::starEvaluationViewDidSelectRating(int rating) {
    evaluation_ = rating;
    sendButton_->setEnabled(true);
}

void FeedbackViewController::sendTapped() {
    analytics_.logEvaluatedApp(evaluation_);
    if (evaluation_ <= kThreshold) {
        dismissSelf(true);
        return;
    }
    dismissSelf(true, [&settings = settings_, &review = review_] {
        settings.userDefaults().setBool(true, settings.achievedSuccessKey());
        review.requestReview();
    });
}

}  // namespace pellumar
