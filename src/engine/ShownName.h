#pragma once

#include <QString>

namespace pellumar {

// A name or path out of an archive, in quotation marks, as part of a sentence: short enough to
// read, the middle left out, and in one line whatever is in it. Signs that would turn the direction
// of the text or break its line become U+FFFD.
[[nodiscard]] QString shownName(const QString& name);

}  // namespace pellumar
