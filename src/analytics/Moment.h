#pragma once

#include <QtGlobal>

namespace pellumar {

// When something happened, by three clocks.
struct Moment {
    // Milliseconds since 1970 in UTC, as the machine believes.
    qint64 wall = 0;
    // Milliseconds since some moment of the past. Never set, and counts while the machine sleeps;
    // to be compared within one process only.
    qint64 elapsed = 0;
    // The same without the time that the machine slept.
    qint64 awake = 0;

    [[nodiscard]] static Moment now();
};

// The local day of a moment of the wall clock, counted from the first of January 1970.
[[nodiscard]] qint64 localDay(qint64 wall);

}  // namespace pellumar
