#pragma once

#include <optional>
#include <system_error>
#include <thread>

#include "archive/base/WithinMemory.h"

namespace pellumar::archive {

// Whether the kernel can confine a thread: Landlock, of Linux 5.13 and later where it is switched
// on.
[[nodiscard]] bool canConfine();

// Leaves the calling thread, and each that it starts from then on, one folder, by a descriptor of
// any kind: below it they may read, and make, write, rename and remove files, folders and links; no
// other file can be opened, changed or started any more. It cannot be taken back. What is open
// stays usable; permissions, owners and times of what can be named are not guarded, nor is the
// network. False if the system refuses.
[[nodiscard]] bool confineTo(int folder);

// Runs `work`, which returns a Result, confined to the folder, and returns that when it has ended:
// on a thread of its own that ends with it. Where nothing can be confined, or there is no thread to
// be had, on the calling one.
template <typename Work>
[[nodiscard]] auto runConfined(int folder, const Work& work) -> decltype(work()) {
    if (!canConfine()) {
        return work();
    }
    std::optional<decltype(work())> outcome;
    try {
        std::thread([&] {
            // One that was refused is as good as a kernel without.
            static_cast<void>(confineTo(folder));
            outcome.emplace(withinMemory(work));
        }).join();
    } catch (const std::system_error&) {
        return work();
    }
    return *std::move(outcome);
}

}  // namespace pellumar::archive
