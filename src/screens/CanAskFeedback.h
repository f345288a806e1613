#pragma once

#include <memory>

#include "platform/DispatchQueue.h"
#include "platform/StoreReview.h"
#include "platform/kit/UIViewController.h"
#include "settings/UserSettings.h"

namespace pellumar {

// A screen after whose work the user may be asked for a rating, once in the life of the
// installation.
class CanAskFeedback {
  protected:
    ~CanAskFeedback() = default;

    // Asks with the next turn of the main queue, so that a sheet has gone by then; not at all if
    // `screen`, which is this, has gone by then too.
    static void askForReviewOnce(const std::weak_ptr<UIViewController>& screen,
                                 const UserSettings& settings,
                                 StoreReview& review,
                                 DispatchQueue& mainQueue);
};

}  // namespace pellumar
