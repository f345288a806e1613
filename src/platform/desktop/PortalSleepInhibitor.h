#pragma once

#include "platform/SleepInhibitor.h"

namespace pellumar {

// Asks the desktop portal, or the login manager where there is no portal. Without either nothing is
// kept awake.
class PortalSleepInhibitor : public SleepInhibitor {
  public:
    [[nodiscard]] std::shared_ptr<void> keepAwake(const QString& reason) override;
};

}  // namespace pellumar
