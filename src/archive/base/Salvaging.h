#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

#include "archive/base/Error.h"
#include "archive/base/Password.h"

namespace pellumar::archive {

// How a damaged archive is salvaged. Whatever points somewhere stays there until it is over.
struct SalvageOptions {
    // For encrypted entries; may be null.
    const Password* password = nullptr;
    // Asked for another where an entry needs one, on the calling thread; `wasWrong`: the last one
    // does not fit. It is not asked again once one has fitted an entry, or it has none to give:
    // what is then not opened is lost. May be empty.
    std::function<std::shared_ptr<const Password>(bool wasWrong)> askForPassword = {};
    // Asked between entries and pieces of the search: kCancelled. What was finished stays.
    std::stop_token stop = {};
    // Told now and then how many bytes of the archive have been gone through, of how many. On the
    // calling thread; must not throw.
    std::function<void(std::uint64_t done, std::uint64_t total)> progress = {};
};

// An entry that is not whole, or may not come out.
struct LostEntry {
    // Empty where that is unknown. Where the reason is kUnsafeName, to be shown and nothing else.
    std::string path;
    // Of its local header, or where that should be.
    std::uint64_t offset = 0;
    ErrorCode reason = ErrorCode::kDamagedData;
};

struct SalvageReport {
    static constexpr std::size_t kMostListed = 10'000;

    std::size_t recovered = 0;  // files, folders and links
    std::uint64_t bytes = 0;    // of the files
    // Of these, how many got another name, since something of theirs was there.
    std::size_t renamed = 0;
    std::size_t lost = 0;
    // The first kMostListed of these, in the order in which they were found to be lost.
    std::vector<LostEntry> lostEntries = {};
    // Without a directory nobody knows whether there was more behind the end of what is there, and
    // files have no permissions, and links are none.
    bool hasDirectory = false;
    // Of a split archive, the first volume that is not there; else empty.
    std::string missingVolume = {};
};

}  // namespace pellumar::archive
