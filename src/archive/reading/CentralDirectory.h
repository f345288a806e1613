#pragma once

#include "archive/base/Error.h"
#include "archive/base/File.h"
#include "archive/base/Warning.h"
#include "archive/reading/DirectoryLocator.h"
#include "archive/reading/EntryTable.h"

namespace pellumar::archive {

// Reads all headers of the central directory and checks what they show by themselves: names that
// are safe, nothing encrypted, on another disk or compressed by an unknown method, sizes that can
// be true of their method, data within the archive and no two entries' data over each other.
//
// The directory is read twice through a small window, since all names have a say in what their
// letters mean. Entries that are the destination folder itself ("./") are left out. Time grows with
// the number of entries n, and n log n where they do not lie in the directory's order.
[[nodiscard]] Result<EntryTable> readCentralDirectory(const File& file,
                                                      const DirectoryLocation& location,
                                                      Warnings& warnings);

}  // namespace pellumar::archive
