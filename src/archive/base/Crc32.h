#pragma once

#include <cstdint>

#include "archive/base/Bytes.h"

// The CRC-32 of ZIP: polynomial 0xEDB88320 reflected, start and end inverted (APPNOTE 4.4.7,
// ISO 3309). All functions are free of state and may be called from any thread.
namespace pellumar::archive {

// The checksum of no bytes; also the value to start from.
inline constexpr std::uint32_t kCrc32OfNothing = 0;

// The checksum of the bytes behind `crc` followed by `bytes`, by the fastest way this processor
// has.
[[nodiscard]] std::uint32_t crc32(std::uint32_t crc, ByteView bytes);

// The same, a byte at a time from a table: the reference that the fast way is tested against.
[[nodiscard]] std::uint32_t crc32Plain(std::uint32_t crc, ByteView bytes);

// The checksum of two runs of bytes one after the other, from their checksums and the length of the
// second in bytes. Takes time in the logarithm of that length.
[[nodiscard]] std::uint32_t crc32Combine(std::uint32_t first,
                                         std::uint32_t second,
                                         std::uint64_t secondLength);

}  // namespace pellumar::archive
