#include "archive/format/EndOfCentralDirectory.h"

#include <algorithm>

#include "archive/format/Append.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {

namespace {

// The ZIP64 record's own size field leaves out the signature and itself (4.3.14.1).
constexpr std::uint64_t kZip64RecordLeading = 12;

void appendZip64End(std::vector<std::uint8_t>& out,
                    std::uint64_t entryCount,
                    std::uint64_t directoryOffset,
                    std::uint64_t directorySize) {
    append(out, kZip64EndOfCentralDirectorySignature);
    append(out, std::uint64_t{kZip64EndOfCentralDirectorySize - kZip64RecordLeading});
    append(out, static_cast<std::uint16_t>((kHostUnix << 8U) | kVersionMadeBy));
    append(out, kVersionZip64);
    append(out, std::uint32_t{0});  // this disk
    append(out, std::uint32_t{0});  // the directory's disk
    append(out, entryCount);        // on this disk
    append(out, entryCount);
    append(out, directorySize);
    append(out, directoryOffset);

    append(out, kZip64LocatorSignature);
    append(out, std::uint32_t{0});  // the ZIP64 record's disk
    append(out, directoryOffset + directorySize);
    append(out, std::uint32_t{1});  // disks
}

}  // namespace

EndFields parseEndOfCentralDirectory(ByteView record) {
    return {.disk = loadLittleEndian<std::uint16_t>(record, 4),
            .directoryDisk = loadLittleEndian<std::uint16_t>(record, 6),
            .entriesOnDisk = loadLittleEndian<std::uint16_t>(record, 8),
            .entries = loadLittleEndian<std::uint16_t>(record, 10),
            .directorySize = loadLittleEndian<std::uint32_t>(record, 12),
            .directoryOffset = loadLittleEndian<std::uint32_t>(record, 16)};
}

EndFields parseZip64EndOfCentralDirectory(ByteView record) {
    return {.disk = loadLittleEndian<std::uint32_t>(record, 16),
            .directoryDisk = loadLittleEndian<std::uint32_t>(record, 20),
            .entriesOnDisk = loadLittleEndian<std::uint64_t>(record, 24),
            .entries = loadLittleEndian<std::uint64_t>(record, 32),
            .directorySize = loadLittleEndian<std::uint64_t>(record, 40),
            .directoryOffset = loadLittleEndian<std::uint64_t>(record, 48)};
}

Zip64Locator parseZip64Locator(ByteView record) {
    return {.recordDisk = loadLittleEndian<std::uint32_t>(record, 4),
            .recordOffset = loadLittleEndian<std::uint64_t>(record, 8),
            .disks = loadLittleEndian<std::uint32_t>(record, 16)};
}

std::uint16_t commentSizeOf(ByteView record) {
    return loadLittleEndian<std::uint16_t>(record, 20);
}

std::uint64_t endOfZip64Record(ByteView record, std::uint64_t position) {
    return position + kZip64RecordLeading + loadLittleEndian<std::uint64_t>(record, 4);
}

void appendEndOfCentralDirectory(std::vector<std::uint8_t>& out,
                                 std::uint64_t entryCount,
                                 std::uint64_t directoryOffset,
                                 std::uint64_t directorySize,
                                 std::string_view comment) {
    if (entryCount >= kMax16 || directoryOffset >= kMax32 || directorySize >= kMax32) {
        appendZip64End(out, entryCount, directoryOffset, directorySize);
    }
    const auto count = static_cast<std::uint16_t>(std::min<std::uint64_t>(entryCount, kMax16));
    append(out, kEndOfCentralDirectorySignature);
    append(out, std::uint16_t{0});  // this disk
    append(out, std::uint16_t{0});  // the directory's disk
    append(out, count);             // on this disk
    append(out, count);
    append(out, static_cast<std::uint32_t>(std::min<std::uint64_t>(directorySize, kMax32)));
    append(out, static_cast<std::uint32_t>(std::min<std::uint64_t>(directoryOffset, kMax32)));
    append(out, static_cast<std::uint16_t>(comment.size()));
    append(out, asBytes(comment));
}

}  // namespace pellumar::archive::format
