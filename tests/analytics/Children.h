#pragma once

#include <string>

namespace pellumar::test {

inline constexpr int kNoDisk = 77;

// This program as a child, told by its first argument what it does. Nothing if it is none.
//
// "--crash FOLDER HOW" catches crashes, and has one: "fault", "abort", "overflow".
// "--fill-disk FOLDER" measures on a small disk of its own, which it mounts there and fills, and
// returns kNoDisk if it may not.
[[nodiscard]] bool runAsChild(int argc, char** argv, int& exitCode);

}  // namespace pellumar::test
