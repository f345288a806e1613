#include "screens/CanAskFeedback.h"

namespace pellumar {

void CanAskFeedback::askForReviewOnce() {
    services().mainQueue.async(whileAlive([this] {
        UserDefaults& defaults = services().settings.userDefaults();
        const QString& didRequest = services().settings.didRequestKey();
        if (!defaults.boolForKey(didRequest)) {
            defaults.setBool(true, didRequest);
            services().review.requestReview();
        }
    }));
}

}  // namespace pellumar
