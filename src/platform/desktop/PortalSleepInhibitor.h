#pragma once

#include "platform/SleepInhibitor.h"

namespace pellumar {

// Asks the desktop portal. Without a portal nothing is kept awake.
class PortalSleepInhibitor : public SleepInhibitor {
  public:
    [[nodiscard]] std::shared_ptr<void> keepAwake(const QString& reason) override;
};

}  // namespace pellumar
