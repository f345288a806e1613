#pragma once

#include <cstdint>

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// Where a file's central directory lies. Offsets count from the start of the file.
struct DirectoryLocation {
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
    // What the archive says, of the true number, modulo `countModulo`; exactly where that is 0.
    std::uint64_t entryCount = 0;
    std::uint64_t countModulo = 0;
    // How many bytes stand before the archive: what its own offsets are short of.
    std::uint64_t archiveStart = 0;
    std::uint64_t bytesAfter = 0;
    std::uint64_t commentOffset = 0;
    std::uint16_t commentSize = 0;
    bool zip64 = false;
    // The archive is over 4 GiB and has no ZIP64 record: the offsets and sizes in its directory are
    // the lower 32 bits of the true ones.
    bool cutTo32Bits = false;
};

// How many volumes the archive has whose last one `file` is, as its end record says; 0 if it has no
// such record.
[[nodiscard]] std::size_t claimedVolumes(const ByteSource& file);

// Finds the end of central directory record of `file`, with its ZIP64 record where there is one,
// and holds all their fields against each other.
//
// The record is the one whose comment reaches exactly to the end of the file; if two could be meant
// (an archive in the comment of another) the file is refused, since tools would disagree on what it
// holds. Only if there is none, bytes behind the comment are put up with, and then before the
// archive only such as hold no local header: the end of an archive that is cut off within a stored
// archive looks like that otherwise.
//
// Archives of over 65,535 entries or over 4 GiB without ZIP64 records, which some writers make, are
// found where what the record says is right modulo 2^16 and 2^32.
//
// Places that are told by volume become those in the whole (ByteSource::volumeStarts).
//
// kNotAnArchive, kTruncated, kDamagedDirectory or kMultipleDisks, with the offset of the record.
[[nodiscard]] Result<DirectoryLocation> locateDirectory(const ByteSource& file);

}  // namespace pellumar::archive
