#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pellumar::archive {

// The name under which a file at this path, below some folder, goes into an archive: the path, but
// for what is a name here and a way to another folder elsewhere. A "\" and the ":" of a beginning
// like that of a drive ("C:x") become letters that look the same and are names everywhere (in names
// that are not UTF-8, "_"). Nothing if the path is empty, absolute, longer than 65,535 bytes or has
// a ".." component.
[[nodiscard]] std::optional<std::string> portableName(std::string_view path);

}  // namespace pellumar::archive
