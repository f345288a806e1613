#include "archive/format/EntryRecord.h"

#include <string_view>

#include "archive/format/Append.h"
#include "archive/format/ExtraFields.h"
#include "archive/format/Sections.h"
#include "archive/format/Timestamps.h"
#include "archive/format/Utf8.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {

namespace {

constexpr std::uint32_t kTypeMask = 0170000;
constexpr std::uint32_t kTypeDirectory = 0040000;
constexpr std::uint32_t kOwnerWrite = 0200;

// Stored DEFLATE blocks cost five bytes each 65,535; a 1,024th covers that and every join.
constexpr std::uint64_t kWorstGrowth = 1024;

std::uint16_t flagsOf(const EntryRecord& record) {
    // ASCII means the same with and without the flag; old readers are happier without.
    const bool ascii = isAscii(record.name) && isAscii(record.comment);
    unsigned flags = !ascii && isUtf8(record.name) && isUtf8(record.comment) ? kFlagUtf8 : 0U;
    flags |= record.encrypted ? kFlagEncrypted : 0U;
    flags |= record.described ? kFlagDataDescriptor : 0U;
    return static_cast<std::uint16_t>(flags);
}

std::uint32_t low32(std::uint64_t value) {
    return value >= kMax32 ? kMax32 : static_cast<std::uint32_t>(value);
}

std::uint32_t externalAttributes(const EntryRecord& record) {
    std::uint32_t attributes = record.unixMode << kUnixModeShift;
    if ((record.unixMode & kTypeMask) == kTypeDirectory) {
        attributes |= kDosDirectory;
    }
    if ((record.unixMode & kOwnerWrite) == 0) {
        attributes |= kDosReadOnly;
    }
    return attributes;
}

bool usesAes(const EntryRecord& record) {
    return record.aesStrength != 0;
}

std::uint16_t versionNeeded(const EntryRecord& record, bool zip64) {
    return usesAes(record) ? kVersionAes : zip64 ? kVersionZip64 : kVersionDeflate;
}

// WinZip's field: version 2, its vendor, the strength and the method that was ahead.
void appendAesField(std::vector<std::uint8_t>& out, const EntryRecord& record) {
    if (!usesAes(record)) {
        return;
    }
    appendExtraFieldHeader(out, kExtraAes, kAesFieldSize);
    append(out, std::uint16_t{2});
    append(out, asBytes("AE"));
    append(out, record.aesStrength);
    append(out, record.method);
}

void appendFlagsToChecksum(std::vector<std::uint8_t>& out, const EntryRecord& record) {
    const DosDateTime modified = toDosDateTime(record.modified, record.inUtc);
    append(out, flagsOf(record));
    append(out, usesAes(record) ? kMethodAes : record.method);
    append(out, modified.time);
    append(out, modified.date);
    append(out, usesAes(record) ? 0U : record.crc32);
}

// The ZIP64 field of a central header: only the values that are masked in it, in this order
// (4.5.3).
std::vector<std::uint8_t> centralExtra(const EntryRecord& record) {
    std::vector<std::uint8_t> values;
    for (const std::uint64_t value :
         {record.uncompressedSize, record.compressedSize, record.localHeaderOffset}) {
        if (value >= kMax32) {
            append(values, value);
        }
    }
    std::vector<std::uint8_t> extra;
    if (!values.empty()) {
        appendExtraFieldHeader(extra, kExtraZip64, static_cast<std::uint16_t>(values.size()));
        append(extra, ByteView(values));
    }
    return extra;
}

}  // namespace

bool needsZip64Sizes(std::uint64_t uncompressedSize) {
    return uncompressedSize + uncompressedSize / kWorstGrowth + kWorstGrowth >= kMax32;
}

void appendLocalFileHeader(std::vector<std::uint8_t>& out, const EntryRecord& record) {
    std::vector<std::uint8_t> extra;
    if (record.zip64Sizes) {
        appendExtraFieldHeader(extra, kExtraZip64, 16);
        append(extra, record.uncompressedSize);
        append(extra, record.compressedSize);
    }
    appendModificationTime(extra, record.modified);
    appendAesField(extra, record);

    append(out, kLocalFileHeaderSignature);
    append(out, versionNeeded(record, record.zip64Sizes));
    appendFlagsToChecksum(out, record);
    append(out, record.zip64Sizes ? kMax32 : low32(record.compressedSize));
    append(out, record.zip64Sizes ? kMax32 : low32(record.uncompressedSize));
    append(out, static_cast<std::uint16_t>(record.name.size()));
    append(out, static_cast<std::uint16_t>(extra.size()));
    append(out, asBytes(record.name));
    append(out, ByteView(extra));
}

void appendDataDescriptor(std::vector<std::uint8_t>& out, const EntryRecord& record) {
    append(out, kDataDescriptorSignature);
    append(out, usesAes(record) ? 0U : record.crc32);
    if (record.zip64Sizes) {
        append(out, record.compressedSize);
        append(out, record.uncompressedSize);
    } else {
        append(out, low32(record.compressedSize));
        append(out, low32(record.uncompressedSize));
    }
}

std::uint8_t upperByteOfDosTime(const EntryRecord& record) {
    return static_cast<std::uint8_t>(toDosDateTime(record.modified, record.inUtc).time >> 8U);
}

void appendCentralDirectoryHeader(std::vector<std::uint8_t>& out, const EntryRecord& record) {
    std::vector<std::uint8_t> extra = centralExtra(record);
    const bool zip64 = record.zip64Sizes || !extra.empty();
    appendModificationTime(extra, record.modified);
    appendAesField(extra, record);
    appendSections(extra, record.sectionContent, record.sectionData);

    append(out, kCentralDirectoryHeaderSignature);
    append(out, static_cast<std::uint16_t>((kHostUnix << 8U) | kVersionMadeBy));
    append(out, versionNeeded(record, zip64));
    appendFlagsToChecksum(out, record);
    append(out, low32(record.compressedSize));
    append(out, low32(record.uncompressedSize));
    append(out, static_cast<std::uint16_t>(record.name.size()));
    append(out, static_cast<std::uint16_t>(extra.size()));
    append(out, static_cast<std::uint16_t>(record.comment.size()));
    append(out, std::uint16_t{0});  // disk
    append(out, std::uint16_t{0});  // internal attributes
    append(out, externalAttributes(record));
    append(out, low32(record.localHeaderOffset));
    append(out, asBytes(record.name));
    append(out, ByteView(extra));
    append(out, asBytes(record.comment));
}

}  // namespace pellumar::archive::format
