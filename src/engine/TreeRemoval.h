#pragma once

#include <filesystem>

namespace pellumar {

// Deletes the file, link or folder at `path`, a folder with all that is in it; true if nothing is
// left of it. What cannot be deleted stays, and the rest goes all the same.
//
// Folders inside that have lost their permissions get them back on the way, as an extracted archive
// may have brought some. Symbolic links are deleted, never followed, even if somebody puts them
// there meanwhile. Any depth works: one folder is open at a time, and no path is put together.
[[nodiscard]] bool removeTree(const std::filesystem::path& path);

}  // namespace pellumar
