#pragma once

#include "cli/Arguments.h"
#include "cli/Messages.h"

namespace pellumar {

// Prints what an archive holds. Returns what the program returns: success as well where entries
// could not be extracted, which is told beside.
[[nodiscard]] int listArchive(const ListArguments& arguments, bool endWithNul, Messages& messages);

}  // namespace pellumar
