#include "archive/format/LocalFileHeader.h"

#include "archive/format/Zip64Values.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {

namespace {

// The form with sizes of type T and no signature.
template <typename T>
bool matchesForm(ByteView bytes,
                 std::uint32_t crc32,
                 std::uint64_t compressedSize,
                 std::uint64_t uncompressedSize) {
    return bytes.size() >= sizeof(std::uint32_t) + 2 * sizeof(T) &&
           loadLittleEndian<std::uint32_t>(bytes) == crc32 &&
           loadLittleEndian<T>(bytes, sizeof(std::uint32_t)) == static_cast<T>(compressedSize) &&
           loadLittleEndian<T>(bytes, sizeof(std::uint32_t) + sizeof(T)) ==
               static_cast<T>(uncompressedSize);
}

}  // namespace

std::size_t LocalFileHeader::recordSize(ByteView fixedPart) {
    return kLocalFileHeaderSize + loadLittleEndian<std::uint16_t>(fixedPart, 26) +
           loadLittleEndian<std::uint16_t>(fixedPart, 28);
}

Result<LocalFileHeader> LocalFileHeader::parse(ByteView bytes, std::uint64_t fileOffset) {
    if (bytes.size() < kLocalFileHeaderSize ||
        loadLittleEndian<std::uint32_t>(bytes) != kLocalFileHeaderSignature ||
        bytes.size() < recordSize(bytes)) {
        return failure(ErrorCode::kHeaderMismatch, fileOffset);
    }
    LocalFileHeader header;
    header.flags = loadLittleEndian<std::uint16_t>(bytes, 6);
    header.method = loadLittleEndian<std::uint16_t>(bytes, 8);
    header.modified = {.time = loadLittleEndian<std::uint16_t>(bytes, 10),
                       .date = loadLittleEndian<std::uint16_t>(bytes, 12)};
    header.crc32 = loadLittleEndian<std::uint32_t>(bytes, 14);
    header.compressedSize = loadLittleEndian<std::uint32_t>(bytes, 18);
    header.uncompressedSize = loadLittleEndian<std::uint32_t>(bytes, 22);
    const std::size_t nameSize = loadLittleEndian<std::uint16_t>(bytes, 26);
    const std::size_t extraSize = loadLittleEndian<std::uint16_t>(bytes, 28);
    header.name = bytes.subspan(kLocalFileHeaderSize, nameSize);
    header.extra = bytes.subspan(kLocalFileHeaderSize + nameSize, extraSize);

    Zip64Values zip64(header.extra);
    if (!zip64.resolve(header.uncompressedSize) || !zip64.resolve(header.compressedSize)) {
        return failure(ErrorCode::kHeaderMismatch, fileOffset);
    }
    return header;
}

bool matchesDataDescriptor(ByteView bytes,
                           std::uint32_t crc32,
                           std::uint64_t compressedSize,
                           std::uint64_t uncompressedSize) {
    const auto matchesEitherSize = [&](ByteView form) {
        return matchesForm<std::uint32_t>(form, crc32, compressedSize, uncompressedSize) ||
               matchesForm<std::uint64_t>(form, crc32, compressedSize, uncompressedSize);
    };
    const bool hasSignature = bytes.size() >= sizeof(std::uint32_t) &&
                              loadLittleEndian<std::uint32_t>(bytes) == kDataDescriptorSignature;
    return (hasSignature && matchesEitherSize(bytes.subspan(sizeof(std::uint32_t)))) ||
           matchesEitherSize(bytes);
}

}  // namespace pellumar::archive::format
