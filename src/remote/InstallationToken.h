#pragma once

#include "platform/Console.h"
#include "platform/InstallationsService.h"

namespace pellumar {

// For a developer at a debugger: asks for a fresh token of this installation and writes it to the
// console, or why there is none. Nothing calls it. `console` must outlive the service's answer.
void printInstallationToken(InstallationsService& installations, Console& console);

}  // namespace pellumar
