#pragma once

#include <cstdint>
#include <stop_token>
#include <string>

#include "archive/base/Progress.h"

namespace pellumar::archive {

// What a second entry of the same name gets, or one below what is a file.
enum class SameNames : std::uint8_t {
    kRefuse,  // kConflictingNames
    kRename,  // a name of its own: "name (2).ext", or the next number that is free, with a warning
    kKeep     // the same name: extracting takes the last of them
};

struct WriterOptions {
    // Takes the place of a file or link that stands at the path; otherwise that is kAlreadyExists.
    bool replace = false;
    SameNames sameNames = SameNames::kRefuse;
    // The archive's bytes depend on names, contents and options alone: entries are of their
    // options' time or of 1980-01-01 00:00, in UTC, and have the permissions 0644, 0755 for folders
    // and what its owner may execute, 0777 for links. Encrypted entries differ each time all the
    // same.
    bool reproducible = false;
    // The archive's, in UTF-8, at most 65,535 bytes.
    std::string comment = {};
    // How many compress at once; 0 means as many as the machine has, up to eight. The bytes do not
    // depend on it.
    unsigned threads = 0;
    // Asked between pieces: kCancelled, and the entry is not in the archive. An archive that is
    // closed nevertheless holds what was added before.
    std::stop_token stop = {};
    // Totals are those of addAll, of several calls together.
    ProgressHandler progress = {};
};

}  // namespace pellumar::archive
