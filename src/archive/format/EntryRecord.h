#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

// What the writer knows of one entry, in the forms that its two headers need.
namespace pellumar::archive::format {

struct EntryRecord {
    // As it stands in the headers; a folder's ends in "/". At most 65,535 bytes.
    std::string name;
    std::uint16_t method = 0;
    bool encrypted = false;
    // WinZip's AES, in strength 1 to 3 (AE-2: the headers hold no checksum); 0: traditionally.
    std::uint8_t aesStrength = 0;
    // A data descriptor follows the data.
    bool described = false;
    std::uint32_t unixMode = 0;  // type and permissions as stat tells them
    std::timespec modified{};
    // MS-DOS times are told in UTC instead of local time.
    bool inUtc = false;
    std::string comment = {};  // at most 65,535 bytes
    std::uint32_t crc32 = 0;
    std::uint64_t compressedSize = 0;
    std::uint64_t uncompressedSize = 0;
    std::uint64_t localHeaderOffset = 0;
    // Whether the local header has room for 64 bit sizes. Decided before the data is written, so
    // that the header can be written over once the sizes are known.
    bool zip64Sizes = false;
    // Of an entry that can be inflated in sections: how much of the content each holds, and what
    // each takes of the data.
    std::uint32_t sectionContent = 0;
    std::vector<std::uint32_t> sectionData = {};
};

// Whether an entry of this size may need 64 bit sizes in its local header: the compressed size can
// exceed the uncompressed by the cost of stored blocks.
[[nodiscard]] bool needsZip64Sizes(std::uint64_t uncompressedSize);

// Appends the local file header (APPNOTE 4.3.7). Its length depends on name, time,
// encryption and zip64Sizes alone.
void appendLocalFileHeader(std::vector<std::uint8_t>& out, const EntryRecord& record);

// Appends the data descriptor (4.3.9), with its signature.
void appendDataDescriptor(std::vector<std::uint8_t>& out, const EntryRecord& record);

// The upper byte of the time as it stands in the headers.
[[nodiscard]] std::uint8_t upperByteOfDosTime(const EntryRecord& record);

// Appends the central directory header (4.3.12), with a ZIP64 field for just the values that do not
// fit.
void appendCentralDirectoryHeader(std::vector<std::uint8_t>& out, const EntryRecord& record);

}  // namespace pellumar::archive::format
