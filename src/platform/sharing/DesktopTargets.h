#pragma once

#include <vector>

#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// All ways that a desktop may offer, in the order of a share sheet:
// - "Open with…", one file in another application: through the desktop portal, which lets the user
//   choose, or in the application that the desktop has for its type;
// - "Email", files as attachments of a new message: through the portal, or with xdg-email where
//   there is none;
// - programs that are installed beside us, which the rest is left to;
// - the clipboard, for file managers, editors and terminals alike;
// - the file manager.
//
// Which of them work here, each knows by itself.
[[nodiscard]] std::vector<ShareTarget> desktopTargets();

}  // namespace pellumar
