#pragma once

#include <QString>

namespace pellumar {

// Whether a service of this name runs on the session bus or would be started by it. Asks the bus
// itself and nobody else. For the main thread.
[[nodiscard]] bool isOnSessionBus(const QString& name);

}  // namespace pellumar
