#pragma once

#include <cstdint>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/format/Timestamps.h"

namespace pellumar::archive::format {

// A local file header as it was read (APPNOTE 4.3.7), its ZIP64 field resolved. The views point
// into the bytes that were parsed.
struct LocalFileHeader {
    std::uint16_t flags = 0;
    std::uint16_t method = 0;
    DosDateTime modified;
    std::uint32_t crc32 = 0;
    std::uint64_t compressedSize = 0;
    std::uint64_t uncompressedSize = 0;
    ByteView name;
    ByteView extra;

    // The length of the whole record, given its fixed part (kLocalFileHeaderSize bytes).
    [[nodiscard]] static std::size_t recordSize(ByteView fixedPart);

    // Parses the record at the front of `bytes`, which holds all of it. kHeaderMismatch, at
    // `fileOffset`, if there is none or its ZIP64 field lacks a value it is asked for.
    [[nodiscard]] static Result<LocalFileHeader> parse(ByteView bytes, std::uint64_t fileOffset);
};

// Whether a data descriptor with these values stands at the front of `bytes`, in any of its four
// forms (4.3.9). Of a size that is over 4 GiB the forms of 32 bits hold what fits.
[[nodiscard]] bool matchesDataDescriptor(ByteView bytes,
                                         std::uint32_t crc32,
                                         std::uint64_t compressedSize,
                                         std::uint64_t uncompressedSize);

}  // namespace pellumar::archive::format
