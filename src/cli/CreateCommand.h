#pragma once

#include "cli/Arguments.h"
#include "cli/Messages.h"

namespace pellumar {

// Makes an archive of files, links and whole folders. Returns what the program returns.
//
// What was named and is not there ends it before anything is written. What cannot be read when its
// turn comes is told, the rest goes in all the same, and the command fails.
[[nodiscard]] int createArchive(const CreateArguments& arguments, Messages& messages);

}  // namespace pellumar
