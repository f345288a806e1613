#pragma once

#include "engine/FailureReason.h"
#include "screens/ScreenAbility.h"

namespace pellumar {

// A screen whose work may fail. The user sees one alert, whatever the reason, and the reason beside
// its texts.
class CanShowFailureAlert : public virtual ScreenAbility {
  protected:
    void showFailureAlert(const FailureReason& reason);
    // The same alert with another message.
    void showFailureAlert(const QString& message);

  private:
    void show(const QString& message, const FailureReason& reason);
};

}  // namespace pellumar
