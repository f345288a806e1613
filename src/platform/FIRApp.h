#pragma once

#include <functional>
#include <memory>

#include "platform/FIRAnalytics.h"
#include "platform/FIRRemoteConfig.h"

namespace pellumar {

// The platform's services of this process, for what is itself one of a kind (`shared`). Everything
// else is handed its services by its maker.
class FIRApp {
  public:
    struct Services {
        std::shared_ptr<FIRAnalytics> analytics;
        std::shared_ptr<FIRRemoteConfig> remoteConfig;
    };

    // Has `start` start the services, and makes them known. The first thing of a launch: nothing of
    // them runs before, and what is shared keeps the services it finds at its making. Neither
    // pointer may be null.
    static void configure(const std::function<Services()>& start);

    // Stops the process if nothing has been configured. May be called from any thread.
    [[nodiscard]] static Services services();
};

}  // namespace pellumar
