#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "archive/base/Error.h"

namespace pellumar::archive {

// An entry's name as a path that is safe to follow below a folder.
struct EntryPath {
    // With "/" between components, none empty, "." or ".."; empty if the name is the folder itself
    // ("./"). A view into the name or into the storage.
    std::string_view path;
    // The name ended in a separator.
    bool isFolder = false;
};

// Judges a name that has been decoded. Backslashes are separators, as some writers make them; empty
// and "." components mean nothing and are dropped. kUnsafeName for an empty or absolute name, a
// drive letter in front ("C:x" included), a ".." component, a NUL.
//
// `storage` takes the path where it differs from the name; where it does not, nothing is copied.
[[nodiscard]] Result<EntryPath> judgeEntryName(std::string_view name, std::string& storage);

// The name under which a file at this path, below some folder, goes into an archive: the path, but
// for what is a name here and a way to another folder elsewhere. A "\" and the ":" of a beginning
// like that of a drive ("C:x") become letters that look the same and are names everywhere (in names
// that are not UTF-8, "_"). Nothing if the path is empty, absolute, longer than 65,535 bytes or has
// a ".." component.
[[nodiscard]] std::optional<std::string> portableName(std::string_view path);

}  // namespace pellumar::archive
