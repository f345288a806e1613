#pragma once

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"
#include "archive/base/Warning.h"
#include "archive/format/CentralDirectoryHeader.h"
#include "archive/reading/DirectoryLocator.h"
#include "archive/reading/EntryTable.h"
#include "archive/reading/NameDecoder.h"

namespace pellumar::archive {

// Reads all headers of the central directory and finds fault with entries by what they show: names
// that are not safe, encryption in a way that cannot be read, another disk, unknown methods, sizes
// that cannot be true of their method, data outside of the archive or over another entry's. An
// error only where it cannot be read as headers.
//
// The directory is read twice through a small window, since all names have a say in what their
// letters mean. Entries that are the destination folder itself ("./") are left out. Time grows with
// the number of entries n, and n log n where they do not lie in the directory's order.
[[nodiscard]] Result<EntryTable> readCentralDirectory(const ByteSource& file,
                                                      const DirectoryLocation& location,
                                                      Warnings& warnings);

// The table of one entry, of which a header like those of the directory tells, with the fault that
// it shows. Empty for one of the folder itself. The entry's slot is all that follows its place.
[[nodiscard]] EntryTable tableOf(const format::CentralDirectoryHeader& header,
                                 const NameDecoder& names,
                                 const ByteSource& file);

}  // namespace pellumar::archive
