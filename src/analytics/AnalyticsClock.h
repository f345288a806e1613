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
};

// What time it is. All operations may be called from any thread.
class AnalyticsClock {
  public:
    virtual ~AnalyticsClock() = default;

    [[nodiscard]] virtual Moment now() const = 0;

    // How many milliseconds local time is ahead of UTC at a moment of the wall clock.
    [[nodiscard]] virtual qint64 utcOffset(qint64 wall) const = 0;

    // The local day of a moment, counted from the first of January 1970.
    [[nodiscard]] qint64 dayOf(qint64 wall) const;
};

// The machine's.
class SystemClock : public AnalyticsClock {
  public:
    [[nodiscard]] Moment now() const override;
    [[nodiscard]] qint64 utcOffset(qint64 wall) const override;
};

}  // namespace pellumar
