#include "support/ZipBuilder.h"

#include <libdeflate.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <utility>

#include "archive/base/Crc32.h"
#include "support/FileContents.h"

namespace pellumar::test {

namespace {

constexpr std::uint64_t kMask16 = 0xFFFF;
constexpr std::uint64_t kMask32 = 0xFFFFFFFF;

std::uint32_t checksumOf(std::string_view data) {
    return archive::crc32(archive::kCrc32OfNothing,
                          {reinterpret_cast<const std::uint8_t*>(data.data()), data.size()});
}

// From the general purpose flags to the length of the extra fields: the part both headers share.
// `zip64` takes the values that are masked.
std::string commonPart(const ZipHeader& header, std::uint64_t offset, bool central) {
    std::string zip64;
    if (header.zip64) {
        zip64 = littleEndian(header.uncompressedSize, 8) + littleEndian(header.compressedSize, 8);
        if (central) {
            zip64 += littleEndian(offset, 8);
        }
        zip64 = extraField(1, zip64);
    }
    const auto size = [&](std::uint64_t value) {
        return littleEndian(header.zip64 ? kMask32 : value, 4);
    };
    return littleEndian(header.versionNeeded, 2) + littleEndian(header.flags, 2) +
           littleEndian(header.method, 2) + littleEndian(header.time, 2) +
           littleEndian(header.date, 2) + littleEndian(header.crc32, 4) +
           size(header.compressedSize) + size(header.uncompressedSize) +
           littleEndian(header.name.size(), 2) +
           littleEndian(header.extra.size() + zip64.size(), 2) +
           (central ? littleEndian(header.comment.size(), 2) + littleEndian(header.disk, 2) +
                          littleEndian(0, 2) + littleEndian(header.attributes, 4) + size(offset)
                    : "") +
           header.name + header.extra + zip64 + (central ? header.comment : "");
}

}  // namespace

std::string littleEndian(std::uint64_t value, std::size_t size) {
    std::string out;
    for (std::size_t i = 0; i < size; ++i) {
        out.push_back(static_cast<char>((value >> (8U * i)) & 0xFFU));
    }
    return out;
}

std::string extraField(std::uint16_t identifier, std::string_view data) {
    return littleEndian(identifier, 2) + littleEndian(data.size(), 2) + std::string(data);
}

std::string prose(std::size_t size, unsigned seed) {
    static constexpr std::array<std::string_view, 8> kWords = {
        "the ", "folder ", "of ", "holiday ", "pictures, ", "and ", "a report.\n", "zip "};
    std::mt19937 random(seed);
    std::string text;
    while (text.size() < size) {
        text += kWords[random() % kWords.size()];
        text.push_back(static_cast<char>('a' + random() % 26));
    }
    text.resize(size);
    return text;
}

ZipEntry& ZipEntry::mode(std::uint32_t value) {
    central.attributes = (value << 16U) | (central.attributes & kMask16);
    return *this;
}

ZipEntry& ZipEntry::described(bool signature, bool wide) {
    local.flags |= 8U;
    central.flags |= 8U;
    descriptor = (signature ? littleEndian(0x08074B50, 4) : "") + littleEndian(central.crc32, 4) +
                 littleEndian(central.compressedSize, wide ? 8 : 4) +
                 littleEndian(central.uncompressedSize, wide ? 8 : 4);
    local.crc32 = 0;
    local.compressedSize = 0;
    local.uncompressedSize = 0;
    return *this;
}

ZipEntry packed(std::string name,
                std::uint16_t method,
                std::string compressed,
                std::string_view plain) {
    ZipEntry entry;
    entry.local.name = std::move(name);
    entry.local.method = method;
    entry.local.crc32 = checksumOf(plain);
    entry.local.compressedSize = compressed.size();
    entry.local.uncompressedSize = plain.size();
    entry.central = entry.local;
    entry.data = std::move(compressed);
    return entry.mode(S_IFREG | 0644U);
}

ZipEntry stored(std::string name, std::string data) {
    const std::string plain = data;
    return packed(std::move(name), 0, std::move(data), plain);
}

ZipEntry deflated(std::string name, const std::string& data) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(6), &libdeflate_free_compressor);
    std::string out(libdeflate_deflate_compress_bound(compressor.get(), data.size()), '\0');
    out.resize(libdeflate_deflate_compress(
        compressor.get(), data.data(), data.size(), out.data(), out.size()));
    return packed(std::move(name), 8, std::move(out), data);
}

ZipEntry folder(std::string name, std::uint32_t permissions) {
    return stored(std::move(name), "").mode(S_IFDIR | permissions);
}

ZipEntry symbolicLink(std::string name, std::string target) {
    return stored(std::move(name), std::move(target)).mode(S_IFLNK | 0777U);
}

ZipBuilder& ZipBuilder::add(ZipEntry entry) {
    entries_.push_back(std::move(entry));
    return *this;
}

ZipBuilder& ZipBuilder::file(std::string name, std::string data) {
    return add(stored(std::move(name), std::move(data)));
}

std::string ZipBuilder::build() const {
    std::string out = prefix;
    const std::uint64_t start = offsetsKnowPrefix ? 0 : prefix.size();
    std::string directory;
    std::uint64_t count = 0;
    for (const ZipEntry& entry : entries_) {
        std::uint64_t offset = out.size() - start;
        if (entry.inBody) {
            out += entry.before;
            offset = out.size() - start;
            out += littleEndian(0x04034B50, 4) + commonPart(entry.local, offset, false) +
                   entry.data + entry.descriptor;
        }
        if (entry.inDirectory) {
            directory += littleEndian(0x02014B50, 4) + littleEndian(63, 1) +
                         littleEndian(entry.central.host, 1) +
                         commonPart(entry.central, entry.central.offset.value_or(offset), true);
            ++count;
        }
    }
    out += beforeDirectory;
    const std::uint64_t directoryOffset = out.size() - start;
    out += directory;
    if (zip64) {
        const std::uint64_t position = out.size() - start;
        out += littleEndian(0x06064B50, 4) + littleEndian(44, 8) + littleEndian(63, 2) +
               littleEndian(45, 2) + littleEndian(zip64End.disk, 4) +
               littleEndian(zip64End.directoryDisk, 4) +
               littleEndian(zip64End.entriesOnDisk.value_or(count), 8) +
               littleEndian(zip64End.entries.value_or(count), 8) +
               littleEndian(zip64End.directorySize.value_or(directory.size()), 8) +
               littleEndian(zip64End.directoryOffset.value_or(directoryOffset), 8);
        out += littleEndian(0x07064B50, 4) + littleEndian(0, 4) +
               littleEndian(locatorOffset.value_or(position), 8) + littleEndian(locatorDisks, 4);
    }
    const auto masked = [&](std::uint64_t value, std::uint64_t mask) {
        return zip64 ? mask : value;
    };
    out += littleEndian(0x06054B50, 4) + littleEndian(end.disk, 2) +
           littleEndian(end.directoryDisk, 2) +
           littleEndian(end.entriesOnDisk.value_or(masked(count, kMask16)), 2) +
           littleEndian(end.entries.value_or(masked(count, kMask16)), 2) +
           littleEndian(end.directorySize.value_or(masked(directory.size(), kMask32)), 4) +
           littleEndian(end.directoryOffset.value_or(masked(directoryOffset, kMask32)), 4) +
           littleEndian(commentSize.value_or(static_cast<std::uint16_t>(comment.size())), 2) +
           comment + suffix;
    return out;
}

void ZipBuilder::writeTo(const std::filesystem::path& path) const {
    writeFile(path, build());
}

}  // namespace pellumar::test
