#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

// The records that close an archive and say where its central directory is.
namespace pellumar::archive::format {

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
