#pragma once

#include "screens/ScreenAbility.h"

namespace pellumar {

// A screen after whose work the user may be asked for a rating, once in the life of the
// installation.
class CanAskFeedback : public virtual ScreenAbility {
  protected:
    // Asks with the next turn of the main queue, so that a sheet has gone by then; not at all if
    // the screen has gone by then too.
    void askForReviewOnce();
};

}  // namespace pellumar
