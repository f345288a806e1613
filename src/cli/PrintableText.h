#pragma once

#include <string>
#include <string_view>

namespace pellumar {

// `text` as one line that a terminal can be shown: control characters, by which a name out of an
// archive could command the terminal, become "\x1b" and the like.
[[nodiscard]] std::string printable(std::string_view text);
// The same, appended to `line`.
void appendPrintable(std::string& line, std::string_view text);

}  // namespace pellumar
