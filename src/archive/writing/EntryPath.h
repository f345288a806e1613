#pragma once

#include <string_view>

namespace pellumar::archive {

// Whether a source's path can be the path of an entry: not empty, relative, without NUL and "..",
// and of a length that a header can hold (APPNOTE 4.4.10).
[[nodiscard]] bool isEntryPath(std::string_view path);

}  // namespace pellumar::archive
