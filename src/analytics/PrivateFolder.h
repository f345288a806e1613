#pragma once

#include <filesystem>

namespace pellumar {

// Makes the folder with those above it, if need be, and sees to it that only the user may enter it,
// whoever has made it. False if that cannot be had.
[[nodiscard]] bool makePrivateFolder(const std::filesystem::path& folder);

}  // namespace pellumar
