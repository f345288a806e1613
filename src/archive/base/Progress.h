#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace pellumar::archive {

// How far a job is. Of entries and bytes, unpacked ones, that are done and that there are in all;
// the latter are 0 where that is not known.
struct Progress {
    std::size_t entriesDone = 0;
    std::size_t entriesTotal = 0;
    std::uint64_t bytesDone = 0;
    std::uint64_t bytesTotal = 0;
    // The entry that came last; valid during the call.
    std::string_view entry;
};

// Called by any thread of a job, one at a time and no more than some twenty times a second, and
// once more when all is done. The job waits meanwhile, so it should be quick; it must not throw. Of
// an extraction it finds itself confined to the destination, where the kernel can: what it writes
// to has to be open already.
using ProgressHandler = std::function<void(const Progress&)>;

}  // namespace pellumar::archive
