#pragma once

#include "cli/Arguments.h"
#include "cli/Messages.h"

namespace pellumar {

// Writes what some entries hold to standard output, one after another. Returns what the program
// returns.
[[nodiscard]] int printEntries(const CatArguments& arguments, Messages& messages);

}  // namespace pellumar
