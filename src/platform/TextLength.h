#pragma once

#include <QString>

namespace pellumar {

// The unit in which the lengths of names and values are limited where something is measured: one
// UTF-16 unit. A letter outside of the Basic Multilingual Plane counts as two, and a letter with
// combining marks as itself and each of its marks. Who checks a text before it is handed over and
// who cuts it there both use these, so that what has passed the check is not cut.
[[nodiscard]] inline qsizetype textLength(const QString& text) {
    return text.size();
}

// The beginning of `text` that is no longer than `most`, which is not negative; all of it if it is
// short enough. No half of a surrogate pair is left, though a letter may lose marks.
[[nodiscard]] inline QString textCutTo(const QString& text, qsizetype most) {
    const bool halvesPair = most > 0 && text.size() > most && text.at(most - 1).isHighSurrogate();
    return text.left(halvesPair ? most - 1 : most);
}

}  // namespace pellumar
