#pragma once

#include <filesystem>

#include "archive/base/Error.h"
#include "archive/base/File.h"
#include "archive/base/Salvaging.h"

namespace pellumar::archive {

// Gets out of a truncated or otherwise damaged ZIP archive at `from` every entry that is whole,
// into the folder `to`, which is made if it is not there (its parent has to be). Entries are found
// by their local headers, by the directory where there is one that can be read; their checksums
// tell whether they are whole. What cannot be had is listed with its reason and is no error.
//
// Names, links and types obey the rules of extraction. Nothing that stands in `to` is overwritten
// or changed: what has the name of something there, another entry of this archive included, becomes
// "name (2).ext".
//
// Takes some 2 MiB, what a decoder's window needs, and 150 bytes and a name for each entry that the
// directory lists; and a time that grows with the archive's size alone, as far as its data is not
// unpacked. Belongs to the calling thread.
//
// Of a split archive all volumes that are there are gone through, whichever `from` names.
//
// kOpenFailed, kReadFailed, kCancelled, kOutOfMemory; kNotAnArchive for what is no regular file, or
// has nothing of an archive in it.
[[nodiscard]] Result<SalvageReport> salvage(const std::filesystem::path& from,
                                            const std::filesystem::path& to,
                                            const SalvageOptions& options = {});
// The same of a regular file that is open.
[[nodiscard]] Result<SalvageReport> salvage(File from,
                                            const std::filesystem::path& to,
                                            const SalvageOptions& options = {});

}  // namespace pellumar::archive
