#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string_view>

#include "archive/base/Error.h"

namespace pellumar::archive {

enum class EntryType : std::uint8_t { kFile, kFolder, kSymbolicLink };

// One entry of an archive that is open for reading, as its central directory tells it. A view: it
// lives as long as the archive.
struct Entry {
    // In UTF-8 with "/" between the components, none of them empty, "." or "..", none at either
    // end. Where `fault` is kUnsafeName it is the name as it stands, to be shown and nothing else.
    std::string_view path;
    EntryType type = EntryType::kFile;
    // The format's number of the compression method (APPNOTE 4.4.5).
    std::uint16_t method = 0;
    // Its data can only be read with a password.
    bool encrypted = false;
    // What forbids to extract it, by what the directory shows: kUnsafeName, kEncrypted in a way
    // that cannot be read, kUnsupportedMethod, kOverlap, kSizeMismatch, kMultipleDisks, and
    // kDamagedDirectory for a place that is not in the archive.
    std::optional<ErrorCode> fault;
    // Permission bits as chmod takes them, without set-id and sticky bits.
    std::uint32_t permissions = 0;
    std::uint32_t crc32 = 0;
    std::timespec modified{};
    std::uint64_t compressedSize = 0;
    std::uint64_t uncompressedSize = 0;
    // From the start of the file, whatever stands before the archive in it.
    std::uint64_t localHeaderOffset = 0;
    // In UTF-8; mostly empty.
    std::string_view comment;
};

}  // namespace pellumar::archive
