#pragma once

#include <chrono>
#include <functional>

namespace pellumar::test {

// Runs the event loop until `isDone` says so; false if that takes longer than `deadline`.
[[nodiscard]] bool waitUntil(const std::function<bool()>& isDone,
                             std::chrono::milliseconds deadline = std::chrono::seconds(20));

}  // namespace pellumar::test
