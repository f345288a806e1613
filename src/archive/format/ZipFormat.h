#pragma once

#include <cstddef>
#include <cstdint>

// The facts of the ZIP format, each once, for the reader and the writer. The numbers in brackets
// are sections of PKWARE's APPNOTE.TXT 6.3.10.
namespace pellumar::archive::format {

// Signatures that records begin with.
inline constexpr std::uint32_t kLocalFileHeaderSignature = 0x04034B50;             // 4.3.7
inline constexpr std::uint32_t kDataDescriptorSignature = 0x08074B50;              // 4.3.9.3
inline constexpr std::uint32_t kCentralDirectoryHeaderSignature = 0x02014B50;      // 4.3.12
inline constexpr std::uint32_t kZip64EndOfCentralDirectorySignature = 0x06064B50;  // 4.3.14
inline constexpr std::uint32_t kZip64LocatorSignature = 0x07064B50;                // 4.3.15
inline constexpr std::uint32_t kEndOfCentralDirectorySignature = 0x06054B50;       // 4.3.16

// Sizes in bytes of the records' fixed parts, signature included.
inline constexpr std::size_t kLocalFileHeaderSize = 30;
inline constexpr std::size_t kCentralDirectoryHeaderSize = 46;
inline constexpr std::size_t kZip64EndOfCentralDirectorySize = 56;
inline constexpr std::size_t kZip64LocatorSize = 20;
inline constexpr std::size_t kEndOfCentralDirectorySize = 22;

// A data descriptor is crc, compressed and uncompressed size, with or without its signature, with
// sizes of 32 or 64 bits (4.3.9). The longest:
inline constexpr std::size_t kLongestDataDescriptor = 24;

// A 16 or 32 bit field at its maximum means: see the ZIP64 record or extra field (4.4.1.4).
inline constexpr std::uint16_t kMax16 = 0xFFFF;
inline constexpr std::uint32_t kMax32 = 0xFFFFFFFF;

// General purpose bit flags (4.4.4).
inline constexpr std::uint16_t kFlagEncrypted = 1U << 0U;
inline constexpr std::uint16_t kFlagLzmaEndMarker = 1U << 1U;
inline constexpr std::uint16_t kFlagImplodeLargeWindow = 1U << 1U;
inline constexpr std::uint16_t kFlagImplodeLiteralCode = 1U << 2U;
inline constexpr std::uint16_t kFlagDataDescriptor = 1U << 3U;
inline constexpr std::uint16_t kFlagPatchData = 1U << 5U;
inline constexpr std::uint16_t kFlagStrongEncryption = 1U << 6U;
inline constexpr std::uint16_t kFlagUtf8 = 1U << 11U;
inline constexpr std::uint16_t kFlagMaskedHeader = 1U << 13U;

// Compression methods (4.4.5) that can be read; kDeflate is what is written.
inline constexpr std::uint16_t kMethodStored = 0;
inline constexpr std::uint16_t kMethodShrink = 1;
inline constexpr std::uint16_t kMethodReduce1 = 2;  // with compression factor 1
inline constexpr std::uint16_t kMethodReduce2 = 3;
inline constexpr std::uint16_t kMethodReduce3 = 4;
inline constexpr std::uint16_t kMethodReduce4 = 5;
inline constexpr std::uint16_t kMethodImplode = 6;
inline constexpr std::uint16_t kMethodDeflate = 8;
inline constexpr std::uint16_t kMethodDeflate64 = 9;
inline constexpr std::uint16_t kMethodBzip2 = 12;
inline constexpr std::uint16_t kMethodLzma = 14;
inline constexpr std::uint16_t kMethodZstandardOld = 20;  // before 6.3.8
inline constexpr std::uint16_t kMethodZstandard = 93;
inline constexpr std::uint16_t kMethodXz = 95;
inline constexpr std::uint16_t kMethodPpmd = 98;
// The true method stands in the AES field (WinZip's AES Encryption Information).
inline constexpr std::uint16_t kMethodAes = 99;

// Extra field identifiers (4.5.2, 4.6.1).
inline constexpr std::uint16_t kExtraZip64 = 0x0001;              // 4.5.3
inline constexpr std::uint16_t kExtraNtfs = 0x000A;               // 4.5.5
inline constexpr std::uint16_t kExtraUnixOld = 0x000D;            // 4.5.7
inline constexpr std::uint16_t kExtraExtendedTimestamp = 0x5455;  // Info-ZIP "UT"
inline constexpr std::uint16_t kExtraInfoZipUnix1 = 0x5855;       // Info-ZIP "UX"
inline constexpr std::uint16_t kExtraUnicodePath = 0x7075;        // 4.6.9
inline constexpr std::uint16_t kExtraSections = 0x7A50;           // our own "Pz", see Sections.h

// Version (1, 2: AE-1, AE-2), "AE", strength (1 to 3), true method: seven bytes.
inline constexpr std::uint16_t kExtraAes = 0x9901;
inline constexpr std::size_t kAesFieldSize = 7;

inline constexpr std::size_t kExtraFieldHeaderSize = 4;

// Hosts in the upper byte of "version made by" (4.4.2.2).
inline constexpr std::uint8_t kHostUnix = 3;
inline constexpr std::uint8_t kHostDarwin = 19;

// Versions of the format in tenths (4.4.3.2).
inline constexpr std::uint16_t kVersionDeflate = 20;
inline constexpr std::uint16_t kVersionZip64 = 45;
inline constexpr std::uint16_t kVersionAes = 51;
// What this library implements, said in "version made by": 6.3.
inline constexpr std::uint16_t kVersionMadeBy = 63;

// External attributes: Unix mode in the upper half, MS-DOS attributes in the lowest byte (4.4.15).
inline constexpr unsigned kUnixModeShift = 16;
inline constexpr std::uint32_t kDosReadOnly = 0x01;
inline constexpr std::uint32_t kDosDirectory = 0x10;

}  // namespace pellumar::archive::format
