#pragma once

#include <string>

namespace pellumar::test {

// This program as a child, told by its first argument what it does. Nothing if it is none.
//
// "--log FOLDER ADDRESS NAME COUNT" logs so many events and sends them.
// "--crash FOLDER HOW" catches crashes, and has one: "fault", "abort", "overflow".
[[nodiscard]] bool runAsChild(int argc, char** argv, int& exitCode);

}  // namespace pellumar::test
