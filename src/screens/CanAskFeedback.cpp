#include "screens/CanAskFeedback.h"

namespace pellumar {

void CanAskFeedback::askForReviewOnce(const std::weak_ptr<UIViewController>& screen,
                                      const UserSettings& settings,
                                      StoreReview& review,
                                      DispatchQueue& mainQueue) {
    mainQueue.async([screen, &settings, &review] {
        UserDefaults& defaults = settings.userDefaults();
        if (screen.expired() || defaults.boolForKey(settings.didRequestKey())) {
            return;
        }
        defaults.setBool(true, settings.didRequestKey());
        review.requestReview();
    });
}

}  // namespace pellumar
