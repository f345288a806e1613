#pragma once

#include <cstdint>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/format/Timestamps.h"

namespace pellumar::archive::format {

// A central directory header as it was read (APPNOTE 4.3.12), its ZIP64 field resolved. The views
// point into the bytes that were parsed.
struct CentralDirectoryHeader {
    std::uint8_t host = 0;
    std::uint16_t flags = 0;
    std::uint16_t method = 0;
    DosDateTime modified;
    std::uint32_t crc32 = 0;
    std::uint64_t compressedSize = 0;
    std::uint64_t uncompressedSize = 0;
    // As written: from the start of the archive, which need not be the start of the file.
    std::uint64_t localHeaderOffset = 0;
    std::uint32_t disk = 0;
    std::uint32_t externalAttributes = 0;
    ByteView name;
    ByteView extra;
    ByteView comment;

    // The length of the whole record, given its fixed part (kCentralDirectoryHeaderSize bytes).
    [[nodiscard]] static std::size_t recordSize(ByteView fixedPart);

    // Parses the record that `bytes` is, whole. kDamagedDirectory, at `fileOffset`, for a wrong
    // signature or a ZIP64 field that lacks a value it is asked for.
    [[nodiscard]] static Result<CentralDirectoryHeader> parse(ByteView bytes,
                                                              std::uint64_t fileOffset);
};

}  // namespace pellumar::archive::format
