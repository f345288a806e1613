#pragma once

#include <string_view>

namespace pellumar::archive {

// Whether a source's path can be the path of an entry: of a length that a header can hold (APPNOTE
// 4.4.10), and a name that is not refused when the archive is read, since one such name would make
// the whole archive useless. One with a backslash would be read as folders (APPNOTE 4.4.17.1), and
// might meet another entry there.
[[nodiscard]] bool isEntryPath(std::string_view path);

}  // namespace pellumar::archive
