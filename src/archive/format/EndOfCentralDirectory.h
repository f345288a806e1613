#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/base/Bytes.h"

// The records that close an archive and say where its central directory is.
namespace pellumar::archive::format {

// The fields of the end of central directory record that say where the directory is (4.3.16), or
// those of the ZIP64 record (4.3.14).
struct EndFields {
    std::uint64_t disk = 0;
    std::uint64_t directoryDisk = 0;
    std::uint64_t entriesOnDisk = 0;
    std::uint64_t entries = 0;
    std::uint64_t directorySize = 0;
    std::uint64_t directoryOffset = 0;

    friend bool operator==(const EndFields&, const EndFields&) = default;
};

// The fields of the locator that lead to the ZIP64 record (4.3.15).
struct Zip64Locator {
    std::uint32_t recordDisk = 0;
    std::uint64_t recordOffset = 0;
    std::uint32_t disks = 0;
};

// Of a record that is there whole, its fixed part at least.
[[nodiscard]] EndFields parseEndOfCentralDirectory(ByteView record);
[[nodiscard]] EndFields parseZip64EndOfCentralDirectory(ByteView record);
[[nodiscard]] Zip64Locator parseZip64Locator(ByteView record);

// How many bytes of comment the end of central directory record says to follow it.
[[nodiscard]] std::uint16_t commentSizeOf(ByteView record);

// Where the ZIP64 record at `position` says that it ends, its extensible part included; whatever is
// there modulo 2^64.
[[nodiscard]] std::uint64_t endOfZip64Record(ByteView record, std::uint64_t position);

// Appends the end of central directory record (APPNOTE 4.3.16). Where a value does not fit into it,
// the ZIP64 record (4.3.14) and its locator (4.3.15) go before. All of it belongs right behind the
// directory, at `directoryOffset` + `directorySize`. The archive's comment, of at most 65,535
// bytes, is its end.
void appendEndOfCentralDirectory(std::vector<std::uint8_t>& out,
                                 std::uint64_t entryCount,
                                 std::uint64_t directoryOffset,
                                 std::uint64_t directorySize,
                                 std::string_view comment = {});

}  // namespace pellumar::archive::format
