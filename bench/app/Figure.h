#pragma once

#include <QElapsedTimer>
#include <cstdio>

namespace pellumar::bench {

// One figure for bench/window: a goal of 0 is none, one of -1 is missed.
inline void print(const char* name, double value, const char* unit, double goal) {
    std::printf("%s\t%.1f\t%s\t%.0f\n", name, value, unit, goal);
    std::fflush(stdout);
}

inline double milliseconds(const QElapsedTimer& since) {
    return static_cast<double>(since.nsecsElapsed()) / 1e6;
}

}  // namespace pellumar::bench
