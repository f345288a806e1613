#include "archive/format/CentralDirectoryHeader.h"

#include "archive/format/Zip64Values.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {

std::size_t CentralDirectoryHeader::recordSize(ByteView fixedPart) {
    return kCentralDirectoryHeaderSize + loadLittleEndian<std::uint16_t>(fixedPart, 28) +
           loadLittleEndian<std::uint16_t>(fixedPart, 30) +
           loadLittleEndian<std::uint16_t>(fixedPart, 32);
}

Result<CentralDirectoryHeader> CentralDirectoryHeader::parse(ByteView bytes,
                                                             std::uint64_t fileOffset) {
    if (bytes.size() < kCentralDirectoryHeaderSize ||
        loadLittleEndian<std::uint32_t>(bytes) != kCentralDirectoryHeaderSignature ||
        bytes.size() < recordSize(bytes)) {
        return failure(ErrorCode::kDamagedDirectory, fileOffset);
    }
    CentralDirectoryHeader header;
    header.host = bytes[5];
    header.flags = loadLittleEndian<std::uint16_t>(bytes, 8);
    header.method = loadLittleEndian<std::uint16_t>(bytes, 10);
    header.modified = {.time = loadLittleEndian<std::uint16_t>(bytes, 12),
                       .date = loadLittleEndian<std::uint16_t>(bytes, 14)};
    header.crc32 = loadLittleEndian<std::uint32_t>(bytes, 16);
    header.compressedSize = loadLittleEndian<std::uint32_t>(bytes, 20);
    header.uncompressedSize = loadLittleEndian<std::uint32_t>(bytes, 24);
    const std::size_t nameSize = loadLittleEndian<std::uint16_t>(bytes, 28);
    const std::size_t extraSize = loadLittleEndian<std::uint16_t>(bytes, 30);
    const std::size_t commentSize = loadLittleEndian<std::uint16_t>(bytes, 32);
    header.disk = loadLittleEndian<std::uint16_t>(bytes, 34);
    header.externalAttributes = loadLittleEndian<std::uint32_t>(bytes, 38);
    header.localHeaderOffset = loadLittleEndian<std::uint32_t>(bytes, 42);
    header.name = bytes.subspan(kCentralDirectoryHeaderSize, nameSize);
    header.extra = bytes.subspan(kCentralDirectoryHeaderSize + nameSize, extraSize);
    header.comment = bytes.subspan(kCentralDirectoryHeaderSize + nameSize + extraSize, commentSize);

    const bool isMasked = header.uncompressedSize == kMax32 || header.compressedSize == kMax32 ||
                          header.localHeaderOffset == kMax32 || header.disk == kMax16;
    if (!isMasked) {
        return header;
    }
    Zip64Values zip64(header.extra);
    if (!zip64.resolve(header.uncompressedSize) || !zip64.resolve(header.compressedSize) ||
        !zip64.resolve(header.localHeaderOffset) || !zip64.resolveDisk(header.disk)) {
        return failure(ErrorCode::kDamagedDirectory, fileOffset);
    }
    return header;
}

}  // namespace pellumar::archive::format
