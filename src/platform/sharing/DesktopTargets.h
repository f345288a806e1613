#pragma once

#include <memory>
#include <vector>

#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// All ways that a desktop may offer, in the order of a share sheet. Which of them work here, each
// knows by itself.
[[nodiscard]] std::vector<std::shared_ptr<ShareTarget>> desktopTargets();

}  // namespace pellumar
