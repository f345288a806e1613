#pragma once

#include "cli/Arguments.h"
#include "cli/Messages.h"

namespace pellumar {

// Reads archives to their ends and tells what is wrong with them. Returns what the program returns:
// a failure if one of them has a fault.
[[nodiscard]] int testArchives(const TestArguments& arguments, Messages& messages);

}  // namespace pellumar
