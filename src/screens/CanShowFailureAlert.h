#pragma once

#include "screens/ScreenAbility.h"

namespace pellumar {

// A screen whose work may fail. The user sees one alert, whatever the reason.
class CanShowFailureAlert : public virtual ScreenAbility {
  protected:
    void showFailureAlert();
    // The same alert with another message.
    void showFailureAlert(const QString& message);
};

}  // namespace pellumar
