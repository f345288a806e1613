#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace pellumar::test {

struct ProcessResult {
    // What the program returned; 128 + n if signal n ended it, 127 if it could not be started.
    int exitCode = 127;
    // What it wrote to standard output and standard error, in the order it came.
    std::string output;
    bool timedOut = false;
};

inline constexpr std::chrono::seconds kProcessDeadline{120};

// Runs a program found on the PATH (or by its path) to its end, with nothing on standard input and
// `folder` as its working folder (empty: ours). One that does not end before the deadline is
// killed.
[[nodiscard]] ProcessResult runProcess(const std::vector<std::string>& command,
                                       const std::filesystem::path& folder = {},
                                       std::chrono::milliseconds deadline = kProcessDeadline);

}  // namespace pellumar::test
