#pragma once

#include "cli/Arguments.h"
#include "cli/Messages.h"

namespace pellumar {

// Extracts an archive, or some of it, into a folder of the caller's. Returns what the program
// returns.
[[nodiscard]] int extractArchive(const ExtractArguments& arguments, Messages& messages);

}  // namespace pellumar
