#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "archive/base/File.h"

namespace pellumar {

// An archive that is named on the command line: a file, or standard input.

// For messages.
[[nodiscard]] std::string inputName(const std::filesystem::path& path);

// Why what was named cannot be an archive whatever is in it, where the library's word for that
// would not help.
[[nodiscard]] std::optional<std::string> whyNoArchive(const std::filesystem::path& path);

// Not open if it is closed.
[[nodiscard]] archive::File standardInput();

}  // namespace pellumar
