#pragma once

#include "engine/FailureReason.h"
#include "platform/kit/UIAlertController.h"
#include "screens/ScreenAbility.h"

namespace pellumar {

// A screen whose work may fail. The user sees one alert, whatever the reason, and the reason beside
// its texts.
class CanShowFailureAlert : public virtual ScreenAbility {
  protected:
    // `remedy`, which may be empty, is what the alert offers to do about it.
    void showFailureAlert(const FailureReason& reason, const UIAlertAction& remedy = {});
    // The same alert with another message.
    void showFailureAlert(const QString& message, const AlertReason& reason = {});
};

}  // namespace pellumar
