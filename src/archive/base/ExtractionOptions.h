#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <stop_token>

#include "archive/base/Password.h"
#include "archive/base/Progress.h"
#include "archive/base/Warning.h"

namespace pellumar::archive {

// What an extraction does where something stands already under the name of a file or link. A folder
// is never replaced (kAlreadyExists), and folders that are there are entered.
enum class ExistingFiles : std::uint8_t {
    kRefuse,     // kAlreadyExists; what was finished before stays
    kOverwrite,  // the new one takes its place when it is whole
    kSkip,       // what is there stays, and the entry is not read
    kRename      // the new one becomes "name (2).ext", or the next number that is free
};

// What an archive may cost. Over the first three, as far as the directory shows it, nothing is
// written: kOverLimit.
struct ExtractionLimits {
    static constexpr std::uint64_t kNone = std::numeric_limits<std::uint64_t>::max();

    std::uint64_t bytes = kNone;    // of all entries, unpacked
    std::uint64_t entries = kNone;  // with the folders that only paths mention
    // Of one entry: bytes unpacked for each byte packed. Deflate reaches 1,032.
    std::uint64_t ratio = kNone;
    // How many threads work, the calling one included; 0 means as many as the machine has, up to
    // eight.
    unsigned threads = 0;
    // For buffers and windows, in bytes: fewer threads work for it, one at least, and an entry that
    // needs more by itself is kOutOfMemory. A thread takes 2 MiB, and 8 more but for Deflate.
    std::uint64_t memory = kNone;
};

// How entries are extracted. Whatever points somewhere stays there until the job is over.
struct ExtractionOptions {
    // For encrypted entries; may be null.
    const Password* password = nullptr;
    // Does not verify checksums.
    bool skipChecksum = false;
    ExistingFiles existing = ExistingFiles::kRefuse;
    // How many leading components each path loses; an entry that has no more is left out. Errors
    // and warnings name what is left.
    std::size_t stripComponents = 0;
    // Returns when all is on the disk.
    bool sync = false;
    ExtractionLimits limits = {};
    // Asked between entries and pieces of them: kCancelled. What was finished stays.
    std::stop_token stop = {};
    ProgressHandler progress = {};
};

// How an extraction went that was not refused: clean, or with warnings.
struct ExtractionReport {
    std::size_t entries = 0;  // made, with folders that only paths mention
    std::uint64_t bytes = 0;
    std::size_t skipped = 0;  // by ExistingFiles::kSkip
    std::size_t renamed = 0;  // by ExistingFiles::kRename
    Warnings warnings = {};
};

}  // namespace pellumar::archive
