#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "archive/base/Entry.h"
#include "cli/LocalDays.h"

namespace pellumar {

// An entry's lines in the lists that `pellumar list` prints, appended to `text`: a million of them
// are to cost next to nothing. `linkTarget` is empty where there is none or it cannot be read.

// The table's heading.
[[nodiscard]] std::string_view tableHeading();
// Permissions, marks, sizes, local time and name, with the end of the line. Nothing in it can
// command a terminal.
void appendTableLine(std::string& text,
                     const archive::Entry& entry,
                     std::string_view linkTarget,
                     LocalDays& days);

// An object of JSON, without the end of the line. Bytes that are not UTF-8 become U+FFFD.
void appendJsonObject(std::string& text, const archive::Entry& entry, std::string_view linkTarget);
void appendJsonString(std::string& text, std::string_view value);

}  // namespace pellumar
