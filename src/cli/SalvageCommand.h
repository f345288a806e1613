#pragma once

#include "cli/Arguments.h"
#include "cli/Messages.h"

namespace pellumar {

// Gets what is whole out of a damaged archive and tells what is lost. Returns what the program
// returns: a failure if something is lost, or may be.
[[nodiscard]] int salvageArchive(const SalvageArguments& arguments, Messages& messages);

}  // namespace pellumar
